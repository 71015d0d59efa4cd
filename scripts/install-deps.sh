#!/usr/bin/env bash
# Installs the Debian 12 packages Mirvane builds, tests and runs with.
# Runs apt only when something is missing.
set -euo pipefail
packages=(
  build-essential cmake ninja-build pkg-config python3
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev qt6-base-dev-tools libgl1-mesa-dev fonts-dejavu-core
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  $sudo_cmd apt-get update
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y "${missing[@]}"
fi
