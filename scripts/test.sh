#!/usr/bin/env bash
# Installs what is missing, builds under AddressSanitizer and
# UndefinedBehaviorSanitizer, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/setup.sh
cmake --preset sanitize
cmake --build build/sanitize

# A host application links the installed package, as a user's would.
cmake --install build/sanitize --prefix build/sanitize/install > /dev/null
cmake -S examples/minimal-host -B build/sanitize/minimal-host -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_PREFIX_PATH="$PWD/build/sanitize/install" -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined" > /dev/null
cmake --build build/sanitize/minimal-host
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:strict_string_checks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
ctest --test-dir build/sanitize --output-on-failure -j "$(nproc)"
