#!/usr/bin/env bash
# Builds the benchmarks in Release and runs each, in a private X server since
# some of them draw on a real window. Figures are printed as ratios measured
# in the same run: machines differ, ratios travel.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
# libtcod's A* is the path search's yardstick; only the benchmarks use it.
bench_packages=(libtcod-dev pkg-config)
missing=()
for p in "${bench_packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  if [ "$(id -u)" -ne 0 ]; then
    echo "Missing packages: ${missing[*]}. Run this as root (or install them with apt-get)." >&2
    exit 1
  fi
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DOSTREL_BENCH=ON -DOSTREL_TESTS=OFF -DOSTREL_DEMOS=OFF >/dev/null
cmake --build build-bench -j2
for bench in build-bench/bench/*_bench; do
  echo "== $(basename "$bench")"
  # -noreset: the server would otherwise reset between one window and the next.
  xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" "$bench" "$@"
done
