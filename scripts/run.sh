#!/usr/bin/env bash
# Installs what is missing, builds, and runs Mirvane on the bundled sample.
# With a display the desktop program opens the sample; without one it renders
# the main window to a picture. The command-line tool reads the sample and
# writes it back.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
sample="$root/samples/sample.typ"
cli="$root/build/cli/mirvane-cli"
"$cli" info "$sample"
"$cli" roundtrip "$sample" -o "$root/build/sample-roundtrip.typ"
echo "Round trip written to $root/build/sample-roundtrip.typ"
app="$root/build/app/mirvane"
if [ -x "$app" ]; then
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$app" "$sample"
  fi
  QT_QPA_PLATFORM=offscreen "$app" --screenshot "$root/build/mirvane-sample.png" "$sample"
  echo "No display: the main window was rendered to $root/build/mirvane-sample.png"
fi
