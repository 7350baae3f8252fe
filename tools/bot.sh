#!/usr/bin/env bash
# Plays the real game in its window, in a private X server, with the window
# bot (tools/proof/bot.cpp) for a while, starting it anew whenever a run
# ends. Screenshots (every 30 s and at each death) and each run's log go to
# build-release/bot/. Fails when a log has an error or a run's exit status
# isn't 0.
#
#   bash tools/bot.sh [seconds]      (default 300)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-300}
dir=build-release
bash tools/install-deps.sh
cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Release -DOSTREL_DEMOS=OFF >/dev/null
cmake --build "$dir" -j2 --target ostrel-game ostrel-bot >&2
out="$PWD/$dir/bot"
rm -rf "$out"
mkdir -p "$out"
xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" \
  "$dir/tools/proof/ostrel-bot" "$PWD/$dir/ostrel-game" "$seconds" "$out"
