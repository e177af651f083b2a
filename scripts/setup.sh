#!/usr/bin/env bash
# Installs every Debian package that building, running and testing Kavrin needs.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

packages=(
    cmake ninja-build g++ pkg-config clang-format
    libpugixml-dev libgtest-dev libgmock-dev libbenchmark-dev
    qt6-base-dev qt6-base-dev-tools libgl-dev qt6-translations-l10n
    xvfb xauth
    clang libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo apt-get update
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
fi
