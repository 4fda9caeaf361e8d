#!/usr/bin/env bash
# Builds the Release configuration and runs the benchmarks.
# Extra arguments go to the benchmark program (for example --benchmark_filter=Framing).
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake --preset release
cmake --build build/release
build/release/bin/codec_bench "$@"
