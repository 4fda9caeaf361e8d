#!/usr/bin/env bash
# The main job: installs what is missing, builds everything into build/ and
# starts the host application orbelan-viewer. Arguments go to orbelan-viewer
# (for example --url HOST --port N --user ID --map CODE).
# Without a display the host runs headless, reading commands from stdin.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake --preset default
cmake --build build

if [[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  exec build/bin/orbelan-viewer "$@"
fi
echo "No display: starting orbelan-viewer --headless (type commands, 'quit' to stop; see the README)."
exec build/bin/orbelan-viewer --headless "$@"
