#!/usr/bin/env bash
# Installs the Debian packages Vocalog needs, only those missing. Quiet when all is there.
set -euo pipefail

packages=(
  cmake make g++ pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev
  libsdl2-dev libgl-dev libegl-dev libgl1-mesa-dri zlib1g-dev
  xvfb xauth xdotool
  libfreetype-dev xfonts-base xfonts-baekmuk fonts-dejavu-core fonts-nanum
)
# `install-deps.sh fuzz`: also clang and its fuzzer runtime, for `make fuzz`.
[ "${1:-}" = fuzz ] && packages+=(clang libclang-rt-14-dev)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "install-deps: installing ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-deps: need root or sudo to install ${missing[*]}" >&2; exit 1; }
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
