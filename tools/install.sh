#!/usr/bin/env bash
# Builds the engine library and installs it for games made outside this tree:
# headers, libostrel.a, the CMake package and ostrel.pc, under the prefix given
# (default /usr/local, which takes root). Shares its build with tools/play.sh.
# Usage: tools/install.sh [prefix]
set -euo pipefail
prefix=$(realpath -m "${1:-/usr/local}")
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOSTREL_TESTS=OFF >/dev/null
cmake --build build -j2 --target ostrel
cmake --install build --prefix "$prefix"
