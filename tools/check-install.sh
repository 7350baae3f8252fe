#!/usr/bin/env bash
# Installs the engine from a built tree into a fresh prefix and uses it as a
# game maker would, from outside this tree: every installed header compiles on
# its own, the game template in examples/walker builds against the prefix
# alone, once with CMake and once with pkg-config, and each build runs
# headless for a few frames and stops cleanly on SIGTERM.
# Usage: tools/check-install.sh <build directory>
set -euo pipefail
cd "$(dirname "$0")/.."
source_dir=$PWD
build_dir=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

fail() {
  echo "check-install: $*" >&2
  exit 1
}

# The README shows the template's code; a newcomer must find the same there.
awk '/^## A small game/ { section = 1 } section && /^```cpp/ { code = 1; next } code && /^```/ { exit } code' \
  README.md | diff - examples/walker/main.cpp >&2 ||
  fail "the README's small game and examples/walker/main.cpp differ (above)"

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
[ ! -e "$prefix/include/ostrel/game" ] || fail "the game's headers were installed"
if grep -rIl "$source_dir" "$prefix" >&2; then
  fail "the installed files above name the source tree: the prefix must stand alone"
fi
pc_file=$(find "$prefix" -name ostrel.pc)
[ -n "$pc_file" ] || fail "no ostrel.pc installed"
export PKG_CONFIG_PATH=${pc_file%/*}
cxx=${CXX:-c++}

echo "-- every installed header on its own"
installed=$(cd "$prefix/include/ostrel" && find engine -name '*.h' | sort)
[ "$installed" = "$(find engine -name '*.h' | sort)" ] || fail "the installed headers are not the engine's"
check_header() {
  echo "#include \"$1\"" | "$cxx" -std=c++17 -fsyntax-only -Wall -Wextra -Wpedantic -Werror \
    $(pkg-config --cflags ostrel) -x c++ - || fail "$1 does not compile on its own"
}
export -f check_header fail
export cxx
echo "$installed" | xargs -P2 -I{} bash -c 'check_header {}' || exit 1

cp -r examples/walker "$work/walker"
warnings="-Wall -Wextra -Werror"

echo "-- the template with CMake"
cmake -S "$work/walker" -B "$work/cmake-build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="$warnings" \
  >/dev/null
grep -qx "Ostrel_DIR:PATH=$prefix/.*" "$work/cmake-build/CMakeCache.txt" || fail "CMake found Ostrel elsewhere"
cmake --build "$work/cmake-build" -j2 >/dev/null

echo "-- the template with pkg-config"
# shellcheck disable=SC2046,SC2086
"$cxx" -std=c++17 $warnings "$work/walker/main.cpp" $(pkg-config --cflags --libs ostrel) -o "$work/walker-pc"

printf 'headless:true,\nnetworking:false,\n' >"$work/headless.txt"
# Waits up to 30 s for a condition, polling.
wait_for() {
  for _ in $(seq 300); do
    "$@" && return 0
    sleep 0.1
  done
  return 1
}
run_headless() {
  local game=$1 log=$2
  (cd "$work/walker" && OSTREL_CONFIG="$work/headless.txt" OSTREL_LOG="$log" exec "$game") &
  local pid=$!
  # The engine catches SIGTERM before it opens its log, so once the file is
  # there the signal ends the loop cleanly rather than the process. The lines
  # themselves wait in a buffer until the end.
  if ! wait_for test -e "$log"; then
    kill -KILL "$pid" 2>/dev/null || true
    fail "$game did not start"
  fi
  sleep 0.3 # some frames of 33 ms; how many doesn't matter
  kill -TERM "$pid"
  if ! wait_for eval '! kill -0 "$pid" 2>/dev/null'; then
    kill -KILL "$pid" 2>/dev/null || true
    fail "$game did not end on SIGTERM"
  fi
  wait "$pid" || fail "$game ended with status $? (log: $(cat "$log"))"
  if grep -E "Error|Warning" "$log" >&2; then fail "$game logged the trouble above"; fi
  grep -q "Game engine started" "$log" || fail "$game did not start: $(cat "$log")"
  tail -n 1 "$log" | grep -q "Game engine stopped" || fail "$game did not stop cleanly: $(cat "$log")"
  echo "$game: ran $(tail -n 1 "$log" | awk '{ print $2 }') frames"
}
run_headless "$work/cmake-build/walker" "$work/cmake.log"
run_headless "$work/walker-pc" "$work/pkg-config.log"
