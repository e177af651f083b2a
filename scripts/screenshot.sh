#!/usr/bin/env bash
# A screenshot of the editor with a layout open, on a virtual screen (xvfb-run), for the guide
# and for looking at the plan without a desktop. Needs a build (scripts/build.sh) and ImageMagick.
#   scripts/screenshot.sh [LAYOUT] [PNG]   (defaults: a sample layout, build/screenshot.png)
# Select in the plan and open dialogs by hand when a picture of them is wanted: run the editor
# under xvfb-run with a VNC server, or on a desktop.
set -euo pipefail
cd "$(dirname "$0")/.."
layout="${1:-../shared/samples/Tutorial-Ampelkreuzung.anl3}"
png="${2:-build/screenshot.png}"
xvfb-run -a -s "-screen 0 1600x1000x24" bash -c '
    build/src/app/kavrin "$1" & editor=$!
    sleep "${KAVRIN_SCREENSHOT_WAIT:-6}"
    import -window root "$2" || convert x:root "$2"
    kill "$editor"' screenshot "$layout" "$png"
echo "$png"
