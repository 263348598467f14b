#!/usr/bin/env bash
# Fails when a C++ source or header under src, tests, tools or bench differs from what
# clang-format makes of it with the repository's .clang-format. Fix with `clang-format -i`.
set -euo pipefail
cd "$(dirname "$0")/.."
format="${CLANG_FORMAT:-clang-format}"
command -v "$format" >/dev/null || { echo "check_format.sh: $format not found" >&2; exit 2; }
mapfile -d '' files < <(find src tests tools bench -type f \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z)
((${#files[@]})) || { echo "check_format.sh: no sources found" >&2; exit 2; }
"$format" --dry-run -Werror "${files[@]}"
echo "clang-format: ${#files[@]} files as formatted"
