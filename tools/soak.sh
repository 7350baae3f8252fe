#!/usr/bin/env bash
# Plays the dungeon game headless for many frames under a seeded bot that
# presses keys and clicks through the engine's input (tools/proof/soak.cpp),
# and reports runs, deaths, shop visits, stairs, kills, objects alive at the
# end and resident memory over time. The same frames and seed replay the same
# game. With --asan it runs the AddressSanitizer+UndefinedBehaviorSanitizer
# build (the test command's), whose leak check at exit reports what was lost.
#
#   bash tools/soak.sh [--asan] [frames] [seed]      (defaults: 100000 frames, seed 1)
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
dir=build-release
flags=(-DCMAKE_BUILD_TYPE=Release -DOSTREL_DEMOS=OFF)
if [ "${1:-}" = --asan ]; then
  shift
  dir=build-asan
  flags=(-DCMAKE_BUILD_TYPE=Debug -DOSTREL_SANITIZE=ON -DOSTREL_DEMOS=OFF)
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  export ASAN_OPTIONS=detect_leaks=1
  export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp"
fi
frames=${1:-100000}
seed=${2:-1}
cmake -S . -B "$dir" "${flags[@]}" >/dev/null
cmake --build "$dir" -j2 --target ostrel-soak >&2
log="$PWD/$dir/soak.log"
errors="$PWD/$dir/soak.stderr"
status=0
OSTREL_LOG="$log" "$dir/tools/proof/ostrel-soak" "$frames" "$seed" 2>"$errors" || status=$?
cat "$errors" >&2
echo "log $log: $(grep -c 'Error' "$log" || true) lines with Error"
if grep -qE 'Sanitizer|runtime error' "$errors"; then
  echo "sanitizer report above" >&2
  status=1
elif [ "$dir" = build-asan ]; then
  echo "sanitizers: no report (leaks checked at exit)"
fi
exit "$status"
