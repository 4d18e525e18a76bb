#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test headless.
#
#   scripts/test.sh              the normal build (build/)
#   scripts/test.sh --sanitize   the same suite built with AddressSanitizer and UBSan (build-asan/)
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir=build
options=()
if [ "${1:-}" = "--sanitize" ]; then
    build_dir=build-asan
    options+=(-DVELLUMAR_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug)
    # Leaks inside system libraries are theirs, not ours: tests/lsan.supp says which.
    export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp${LSAN_OPTIONS:+:$LSAN_OPTIONS}"
fi

scripts/install-deps.sh build package

cmake -S . -B "$build_dir" -G Ninja "${options[@]}"
cmake --build "$build_dir"

# No window may appear: Qt draws offscreen, and nothing here needs a display.
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build_dir" --output-on-failure -j "$(nproc)"
