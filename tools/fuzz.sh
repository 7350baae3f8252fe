#!/usr/bin/env bash
# Fuzzes the engine's readers of outside input with clang's libFuzzer, under
# AddressSanitizer and UndefinedBehaviorSanitizer: each target in turn for the
# given seconds (60 by default), starting from its inputs in tests/fuzz/<name>/.
#   bash tools/fuzz.sh [seconds] [name...]     names: config sprite framing object
# New inputs that reach new code gather in build-fuzz/corpus/<name>/ (kept
# between runs, not committed). An input that fails is written to
# build-fuzz/findings/<name>/ and ends the run with status 1; once the fault is
# fixed, commit the input to tests/fuzz/<name>/, where the test command replays it.
# OSTREL_BUILD_LOCK, if set, names a lock file held while building (not while fuzzing).
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
[ $# -gt 0 ] && shift
names=("$@")
[ ${#names[@]} -gt 0 ] || names=(config sprite framing object)

# The fuzzer's run-time library comes with clang's; only fuzzing needs them.
bash tools/install-deps.sh clang libclang-rt-14-dev

build() {
  if [ -n "${OSTREL_BUILD_LOCK:-}" ]; then flock "$OSTREL_BUILD_LOCK" "$@"; else "$@"; fi
}
# Optimised, but with the engine's assertions on.
build env CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -g" -DOSTREL_FUZZ=ON -DOSTREL_TESTS=OFF -DOSTREL_DEMOS=OFF >/dev/null
build cmake --build build-fuzz -j2 --target "${names[@]/#/ostrel-fuzz-}"

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export ASAN_OPTIONS=detect_leaks=1
for name in "${names[@]}"; do
  echo "== fuzzing $name for $seconds s"
  corpus=build-fuzz/corpus/$name
  findings=build-fuzz/findings/$name
  mkdir -p "$corpus" "$findings"
  dict=()
  [ -f "tests/fuzz/$name.dict" ] && dict=(-dict="tests/fuzz/$name.dict")
  # The first folder takes what is new; the committed inputs are only read.
  nice -n 19 "build-fuzz/tests/fuzz/ostrel-fuzz-$name" -max_total_time="$seconds" -timeout=20 \
    -print_final_stats=1 -artifact_prefix="$findings/" "${dict[@]}" "$corpus" "tests/fuzz/$name"
done
