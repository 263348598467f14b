#!/usr/bin/env bash
# Builds the release configuration in build/package (without tests and benchmarks, so the
# shared release folder keeps its own settings) and makes the .deb with CPack:
# `tools/package.sh`. Prints the path of the package. JOBS limits the parallel build.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/package
cmake --preset release -B "$build" -DTABLEWRIGHT_BUILD_TESTS=OFF -DTABLEWRIGHT_BUILD_BENCH=OFF >&2
cmake --build "$build" -j "${JOBS:-$(nproc)}" >&2
rm -f "$build"/tablewright_*.deb
(cd "$build" && cpack -G DEB >&2)
packages=("$PWD/$build"/tablewright_*.deb)
[[ -f "${packages[0]}" ]] || { echo "package.sh: cpack made no .deb" >&2; exit 1; }
echo "${packages[0]}"
