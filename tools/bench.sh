#!/usr/bin/env bash
# Builds the benchmarks in Release and runs each, in a private X server since
# some of them draw on a real window. Figures are printed as ratios measured
# in the same run: machines differ, ratios travel.
#
#   bash tools/bench.sh [benchmark options]   each program's own report
#   bash tools/bench.sh --table               one table of the headline figures, with the machine
set -euo pipefail
cd "$(dirname "$0")/.."
table=false
if [ "${1:-}" = --table ]; then
  table=true
  shift
fi
# libtcod's A* is the path search's yardstick and python3 prints the table; only the
# benchmarks use them.
bash tools/install-deps.sh libtcod-dev python3
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DOSTREL_BENCH=ON -DOSTREL_TESTS=OFF -DOSTREL_DEMOS=OFF >/dev/null
cmake --build build-bench -j2 >&2
out=build-bench/reports
rm -rf "$out"
mkdir -p "$out"
status=0
for bench in build-bench/bench/*_bench; do
  name=$(basename "$bench")
  echo "== $name" >&2
  # -noreset: the server would otherwise reset between one window and the next.
  run=(xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$bench" "$@")
  if $table; then
    "${run[@]}" --benchmark_out="$out/$name.json" --benchmark_out_format=json >"$out/$name.txt" 2>&1 ||
      { echo "$name failed: see $out/$name.txt" >&2; status=1; }
  else
    "${run[@]}" || status=1
  fi
done
if $table; then python3 tools/bench_table.py "$out"; fi
exit "$status"
