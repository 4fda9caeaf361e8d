#!/usr/bin/env bash
# Draws the README's pictures into docs/images/: each demo map as the
# headless host's --snapshot sees it, and the window under a virtual X
# server (Xvfb, xdotool, ImageMagick's import) when those are installed.
# Usage: scripts/pictures.sh [BUILD_DIR]  (default build; the binaries in BUILD_DIR/bin)
set -euo pipefail
cd "$(dirname "$0")/.."

bin=${1:-build}/bin
out=docs/images
port=10057
size=1280x800
work=$(mktemp -d)
mkdir -p "$out"

# The us-atlas and world-atlas data packages are reused from the build's demo folder when present.
data=$(dirname "$bin")/demo-data
"$bin/orbelan-server" demo --db "$work/demo.sqlite" --data "$data" --images "$work/images" >/dev/null

"$bin/orbelan-server" serve --db "$work/demo.sqlite" --listen 127.0.0.1 --port "$port" 2>/dev/null &
server=$!
xvfb=
trap 'kill "$server" ${xvfb:+"$xvfb"} 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
for _ in $(seq 50); do
  if (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then break; fi
  sleep 0.1
done

viewer=("$bin/orbelan-viewer" --url 127.0.0.1 --port "$port" --user admin --password admin
        --image-path "$work/images" --settings "$work/viewer.ini" --size "$size")
for map in 1:santiago 2:united-states 3:world; do
  QT_QPA_PLATFORM=offscreen "${viewer[@]}" --map "${map%%:*}" --snapshot "$out/${map#*:}.png" >/dev/null ||
    echo "map ${map%%:*} (${map#*:}) did not load: no picture" >&2
done

if command -v Xvfb >/dev/null && command -v xdotool >/dev/null && command -v import >/dev/null; then
  Xvfb :56 -screen 0 1400x950x24 -nolisten tcp &
  xvfb=$!
  sleep 1
  DISPLAY=:56 "${viewer[@]}" --map 1 >/dev/null 2>&1 &
  window=$!
  sleep 8
  # The mouse over the middle of the map, so the status bar shows a position.
  DISPLAY=:56 xdotool mousemove 640 420 mousemove 660 430
  sleep 1
  id=$(DISPLAY=:56 xdotool search --onlyvisible --name "Orbelan Viewer" | head -1)
  DISPLAY=:56 import -window "${id:-root}" "$out/window.png"
  kill "$window"
fi
