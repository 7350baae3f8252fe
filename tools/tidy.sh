#!/usr/bin/env bash
# Runs clang-tidy, with the checks in .clang-tidy, on the engine's and the
# game's sources, and fails on any warning.
#   bash tools/tidy.sh [build folder]      (default build-debug)
set -euo pipefail
cd "$(dirname "$0")/.."
dir=${1:-build-debug}
cmake -S . -B "$dir" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
out=$(mktemp)
trap 'rm -f "$out"' EXIT
status=0
run-clang-tidy -p "$dir" -j2 -quiet "$PWD/(engine|game)/" >"$out" 2>&1 || status=$?
# What clang-tidy says about our own sources, without its per-file tallies.
grep -vE '^(clang-tidy|[0-9]+ warnings? (generated|treated as errors)|Suppressed [0-9]+ warnings|Use -header-filter|Error while processing)' "$out" || true
if [ "$status" -ne 0 ]; then
  echo "clang-tidy found the problems above." >&2
  exit 1
fi
echo "clang-tidy: clean"
