#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs one of them.
# Usage: scripts/fuzz.sh [TARGET] [SECONDS] [extra libFuzzer options]
# New inputs go to fuzz/corpus-work/TARGET, crashes to fuzz/findings/.
set -euo pipefail
cd "$(dirname "$0")/.."

target=${1:-framer_fuzzer}
seconds=${2:-600}
shift $(( $# > 2 ? 2 : $# ))

bash scripts/setup.sh
cmake --preset fuzz
cmake --build build/fuzz --target "$target"
mkdir -p "fuzz/corpus-work/$target" fuzz/findings
"build/fuzz/bin/$target" -max_total_time="$seconds" -artifact_prefix=fuzz/findings/ "$@" \
  "fuzz/corpus-work/$target" "fuzz/corpus/$target"
