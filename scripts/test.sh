#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$root/build" --output-on-failure -j"$(nproc)"
