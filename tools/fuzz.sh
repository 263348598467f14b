#!/usr/bin/env bash
# Builds a libFuzzer target of tests/pairs with clang++-14 (libFuzzer, AddressSanitizer,
# UndefinedBehaviorSanitizer) straight from the sources and runs it for a bounded time.
# Exits non-zero on any crash, hang, leak or sanitizer report, and then keeps the work
# folder with the failing input.
#   Usage: tools/fuzz.sh fuzz_load169 [seconds, default 10]
set -euo pipefail

root="$(cd "$(dirname "$0")/.." && pwd)"
target="${1:?usage: fuzz.sh fuzz_load169 [seconds]}"
seconds="${2:-10}"
source="$root/tests/pairs/$target.cpp"
compiler="${CLANGXX:-clang++-14}"

[[ -f "$source" ]] || { echo "fuzz.sh: no fuzz target $target" >&2; exit 2; }
command -v "$compiler" >/dev/null || { echo "fuzz.sh: $compiler not found" >&2; exit 2; }

work="$(mktemp -d "${TMPDIR:-/tmp}/tablewright-$target.XXXXXX")"
# The targets' own scratch files go to memory where it is available: one file per run.
scratch_parent=/dev/shm
[[ -d "$scratch_parent" && -w "$scratch_parent" ]] || scratch_parent="$work"
scratch="$(mktemp -d "$scratch_parent/tablewright-$target.XXXXXX")"
keep=0
trap 'rm -rf "$scratch"; ((keep)) || rm -rf "$work"' EXIT

"$compiler" -std=c++20 -g -O1 -fno-omit-frame-pointer \
  -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all \
  -I "$root/src" "$root"/src/pairs/*.cpp "$root"/src/cards/*.cpp "$source" \
  -o "$work/$target"

# A few well-formed inputs to start from.
mkdir "$work/corpus"
case "$target" in
  fuzz_load169)
    printf 'AA,\r\nKK,\r\nAKs,\r\n' >"$work/corpus/crlf"
    printf 'AA\rKK\rQQ' >"$work/corpus/cr" ;;
esac

status=0
(cd "$work" && TMPDIR="$scratch" ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  "./$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
  -artifact_prefix="$work/" -print_final_stats=1 corpus) || status=$?

if ((status != 0)); then
  keep=1
  echo "fuzz.sh: $target failed (exit $status); inputs kept in $work" >&2
fi
exit "$status"
