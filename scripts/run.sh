#!/usr/bin/env bash
# The main job: installs what is missing, builds everything into build/,
# builds the demo map store build/demo.sqlite when it is missing, starts
# orbelan-server on 127.0.0.1:10010 and then the host application
# orbelan-viewer, which logs in as the demo's admin (password admin) and
# opens map 1 (Santiago). The server stops when the viewer exits. Arguments
# go to orbelan-viewer and win over those defaults (for example
# --user visor --password visor --map 3).
# Without a display the host runs headless, reading commands from stdin.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake --preset default
cmake --build build

store=build/demo.sqlite
# The demo writes the raster files of its image layers here; the viewer's ImagePath.
images=build/demo-images
port=10010
if [[ ! -f "$store" || ! -f "$images/relieve_santiago.tif" ]]; then
  # The United States and World maps come from npm data packages.
  if ! command -v npm >/dev/null && [[ $(id -u) -eq 0 ]]; then
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends npm ||
      echo "npm could not be installed: the demo is built without the United States and World maps." >&2
  fi
  build/bin/orbelan-server demo --db "$store" --images "$images"
fi

build/bin/orbelan-server serve --db "$store" --listen 127.0.0.1 --port "$port" &
server=$!
trap 'kill "$server" 2>/dev/null || true; wait "$server" 2>/dev/null || true' EXIT
for _ in $(seq 50); do
  if ! kill -0 "$server" 2>/dev/null; then
    echo "orbelan-server did not start (is port $port taken?); the viewer connects to whatever listens there." >&2
    break
  fi
  if (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
    break
  fi
  sleep 0.1
done

# The tooltip names the street under the resting mouse.
viewer=(build/bin/orbelan-viewer --url 127.0.0.1 --port "$port" --user admin --password admin --map 1 --tooltip 101 --image-path "$images")
if [[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  "${viewer[@]}" "$@"
else
  echo "No display: starting orbelan-viewer --headless (type commands, 'quit' to stop; see the README)."
  "${viewer[@]}" --headless "$@"
fi
