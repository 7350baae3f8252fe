#!/usr/bin/env bash
# Builds and runs every test: the formatting check, clang-tidy on the engine
# and the game, then the Debug build and the AddressSanitizer+
# UndefinedBehaviorSanitizer build, each under ctest, and between them the
# engine installed and used from outside this tree.
# The windowed tests run in a private X server (xvfb-run) that ctest starts.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh

echo "== formatting"
mapfile -d '' -t sources < <(find engine game tests bench tools examples \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z)
if ! clang-format --dry-run -Werror "${sources[@]}"; then
  echo "Formatting differs from .clang-format: run clang-format -i on the files named above." >&2
  exit 1
fi
bash tools/check-quirks.sh

echo "== tidy"
bash tools/tidy.sh build-debug

run() {
  local dir=$1
  shift
  echo "== $dir"
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Debug "$@" >/dev/null
  cmake --build "$dir" -j2
  (cd "$dir" && ctest -j2 --output-on-failure)
}

run build-debug
echo "== install"
bash tools/check-install.sh build-debug
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export ASAN_OPTIONS=detect_leaks=1
export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp"
run build-asan -DOSTREL_SANITIZE=ON -DOSTREL_DEMOS=OFF
