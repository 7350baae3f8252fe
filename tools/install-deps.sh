#!/usr/bin/env bash
# Installs what building, playing and testing Ostrel need, only what is
# missing, on Debian 12 as root; then puts the font in place. Packages named
# as arguments are installed as well (the benchmarks add their own).
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(build-essential cmake googletest libgtest-dev libgmock-dev libbenchmark-dev
          libsfml-dev libopenal-dev libx11-dev xvfb xauth xdotool fonts-dejavu-core clang-format
          faketime pkg-config clang-tidy "$@")
missing=()
for p in "${packages[@]}"; do
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

# The engine names the system's copy of its font in one place.
font=$(sed -n 's/.*SYSTEM_FONT_FILENAME = "\(.*\)";/\1/p' engine/core/EventLabels.h)
[ -f ot-font.ttf ] || cp "$font" ot-font.ttf
