#!/usr/bin/env bash
# Configures and builds Mirvane into build/ (Release with debug info).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cmake -S "$root" -B "$root/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$root/build" -j"$(nproc)"
