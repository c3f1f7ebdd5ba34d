#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing Quillo need.
# Idempotent: when every package is present it only checks and returns.
# Usage: scripts/deps.sh [--bench]
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev libqt6svg6 qt6-image-formats-plugins qt6-qpa-plugins libgl-dev
  libcurl4-openssl-dev ca-certificates
  libxcb1-dev libxcb-shm0-dev libxcb-randr0-dev libxcb-xfixes0-dev libxcb-keysyms1-dev
  libxcb-image0-dev libxcb-util-dev libxcb-shape0-dev libxcb-composite0-dev libxcb-xtest0-dev libxkbcommon-dev
  libdeflate-dev libturbojpeg0-dev libpng-dev libcpp-httplib-dev
  xvfb xauth openbox trayer xdotool xclip x11-utils x11-xserver-utils dbus dbus-x11
  fonts-dejavu-core desktop-file-utils attr xdg-utils
)
if [[ "${1:-}" == "--bench" ]]; then
  packages+=(scrot maim imagemagick hyperfine curl xterm)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[[ $(id -u) -ne 0 ]] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
