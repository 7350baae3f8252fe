#!/usr/bin/env bash
# Builds the benchmarks in Release and runs each, in a private X server since
# some of them draw on a real window. Figures are printed as ratios measured
# in the same run: machines differ, ratios travel.
set -euo pipefail
cd "$(dirname "$0")/.."
# libtcod's A* is the path search's yardstick; only the benchmarks use it.
bash tools/install-deps.sh libtcod-dev
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DOSTREL_BENCH=ON -DOSTREL_TESTS=OFF -DOSTREL_DEMOS=OFF >/dev/null
cmake --build build-bench -j2
for bench in build-bench/bench/*_bench; do
  echo "== $(basename "$bench")"
  # -noreset: the server would otherwise reset between one window and the next.
  xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$bench" "$@"
done
