#!/usr/bin/env bash
# Builds Tablewright with warnings as errors and runs every test: the release build,
# then the sanitizer build (AddressSanitizer + UndefinedBehaviorSanitizer). Fails when the
# sources are not as clang-format makes them, and when a group of tests (system, fuzz,
# lessons) was not built or did not run, so that a missing tool cannot thin the run out.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh --test
bash tools/check_format.sh
export QT_QPA_PLATFORM=offscreen
# The system's font library keeps caches that the leak checker would report as ours.
export LSAN_OPTIONS="suppressions=$PWD/tools/lsan.supp"
jobs=$(nproc)
for preset in release asan; do
  started=$SECONDS
  echo "== $preset build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  echo "== $preset tests"
  # The fuzz targets build their own sanitized binaries: once is enough.
  exclude=long
  groups=(system fuzz lessons)
  if [[ "$preset" == asan ]]; then
    exclude="long|fuzz"
    groups=(system lessons)
  fi
  results="build/$preset/test-results.xml"
  ctest --preset "$preset" -j "$jobs" --label-exclude "$exclude" --output-junit "$PWD/$results"
  echo "== $preset groups"
  python3 tools/check_groups.py "build/$preset" "$results" "${groups[@]}"
  echo "== $preset built and tested in $((SECONDS - started)) s"
done
