#!/usr/bin/env bash
# Builds Tablewright (release) and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh
cmake --preset release -DTABLEWRIGHT_BUILD_TESTS=OFF -DTABLEWRIGHT_BUILD_BENCH=OFF >/dev/null
cmake --build --preset release
exec build/release/app/tablewright
