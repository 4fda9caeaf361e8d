#!/usr/bin/env bash
# Builds the Release configuration and runs the benchmarks.
# Extra arguments go to every benchmark program (for example --benchmark_filter=Framing).
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake --preset release
cmake --build build/release
for bench in build/release/bin/*_bench; do
  "$bench" "$@"
done
