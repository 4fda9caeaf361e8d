#!/usr/bin/env bash
# The main job. Installs what is missing and builds everything into build/.
# The host application and the map server are not there yet: for now this
# builds the wire codec the two of them will share and says so.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake --preset default
cmake --build build
echo
echo "Built the wire codec library (build/lib/liborbelan_wire.a)."
echo "The host application orbelan-viewer and the map server orbelan-server are not built yet;"
echo "this command will start them once they exist."
