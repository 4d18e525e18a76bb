#!/usr/bin/env bash
# Builds the benchmarks in release mode and runs them; prints each subject's time as a ratio
# of its floor's at the end. Extra arguments go to Google Benchmark (e.g. --benchmark_filter=Reg).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh build bench
cmake -S . -B build-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DVELLUMAR_BUILD_BENCH=ON \
    -DVELLUMAR_BUILD_TESTS=OFF
cmake --build build-bench --target vellumar_bench
exec build-bench/bench/vellumar_bench --benchmark_repetitions=5 \
    --benchmark_report_aggregates_only=true "$@"
