#!/usr/bin/env bash
# Builds Tablewright with warnings as errors and runs every test: the release build,
# then the sanitizer build (AddressSanitizer + UndefinedBehaviorSanitizer).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh --test
export QT_QPA_PLATFORM=offscreen
# The system's font library keeps caches that the leak checker would report as ours.
export LSAN_OPTIONS="suppressions=$PWD/tools/lsan.supp"
jobs=$(nproc)
for preset in release asan; do
  echo "== $preset build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  echo "== $preset tests"
  # The fuzz targets build their own sanitized binaries: once is enough.
  exclude=long
  [[ "$preset" == asan ]] && exclude="long|fuzz"
  ctest --preset "$preset" -j "$jobs" --label-exclude "$exclude"
done
