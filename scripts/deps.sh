#!/usr/bin/env bash
# Installs the Debian packages the build, the program and the tests need,
# when any is missing, and the packages named as arguments (deps.sh gcovr).
# Runs apt-get as root, or through sudo.
set -euo pipefail

packages=(
    build-essential cmake ninja-build ccache pkg-config
    qt6-base-dev qt6-serialport-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
    libxkbcommon-dev libgl-dev fonts-dejavu-core
    xvfb xauth
    dpkg-dev desktop-file-utils
    "$@"
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
    sudo=()
elif command -v sudo >/dev/null 2>&1; then
    sudo=(sudo)
else
    echo "These packages are missing and neither root nor sudo is available: ${missing[*]}" >&2
    exit 1
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -q
"${sudo[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
