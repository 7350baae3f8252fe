#!/usr/bin/env bash
# Builds the game and runs it from the repository root, where it reads
# ot-config.txt, ot-font.ttf and sprites/.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOSTREL_TESTS=OFF >/dev/null
cmake --build build -j2 --target ostrel-game
if [ -z "${DISPLAY:-}" ]; then
  echo "No display to open the game's window on (DISPLAY is not set): run this from a desktop session, or without one as: xvfb-run -a -s -noreset bash tools/play.sh" >&2
  exit 2
fi
exec ./build/ostrel-game
