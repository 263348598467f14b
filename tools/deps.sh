#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing Tablewright need.
# Safe to run again: it only calls apt-get when something is missing.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  qt6-base-dev qt6-webengine-dev qt6-multimedia-dev libqt6opengl6-dev
  fonts-liberation2 fonts-dejavu-core
)
if [[ "${1:-}" == "--test" ]]; then
  packages+=(libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth xdotool x11-utils libxtst-dev
             clang-14 libclang-rt-14-dev clang-format strace python3 desktop-file-utils appstream
             dpkg-dev dbus-daemon)
  # A desktop's bus tools: with them, a program with no session bus launches one of its own.
  # The system tests give the program a bus of their own and must hold on such a machine.
  packages+=(dbus-x11 at-spi2-core)
  # The screen-reader test listens on the accessibility bus through these bindings.
  packages+=(python3-gi gir1.2-atspi-2.0)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  sudo_cmd=()
  [[ $(id -u) -ne 0 ]] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
