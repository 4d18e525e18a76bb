#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a while (default 60 seconds).
#   scripts/fuzz.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
scripts/install-deps.sh build fuzz
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DVELLUMAR_FUZZ=ON -DVELLUMAR_BUILD_TESTS=OFF -DVELLUMAR_BUILD_GUI=OFF
cmake --build build-fuzz --target profile_text_fuzzer registry_file_fuzzer
for target in profile_text_fuzzer registry_file_fuzzer; do
    corpus=build-fuzz/corpus/$target
    mkdir -p "$corpus"
    echo "== $target for ${seconds}s"
    build-fuzz/fuzz/$target -max_total_time="$seconds" -print_final_stats=1 "$corpus" 2>&1 |
        grep -E '^(stat::|#[0-9]+ +DONE|==[0-9]+==|SUMMARY|Done)' || true
    if ls build-fuzz/fuzz/crash-* build-fuzz/crash-* crash-* >/dev/null 2>&1; then
        echo "fuzz: $target found a crash" >&2
        exit 1
    fi
done
