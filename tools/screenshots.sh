#!/usr/bin/env bash
# Makes the screenshots in docs/screenshots under Xvfb: `tools/screenshots.sh [scene ...]`.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target screenshots tablewright tablewright_app_files
export QT_QPA_PLATFORM=xcb
xvfb-run -a -s "-screen 0 1280x1024x24" build/release/tools/screenshots/screenshots docs/screenshots "$@"
