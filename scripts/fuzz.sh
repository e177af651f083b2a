#!/usr/bin/env bash
# Builds the layout fuzzer with clang into build-fuzz/ and runs it for SECONDS (default 180),
# seeded with small pieces of the shared sample layouts and the demo, and with the inputs that
# ever failed (tests/fuzz/regressions). New inputs go to build-fuzz/corpus; an input that breaks
# the round trip or a sanitizer report is written to build-fuzz/findings/ and fails the run:
# keep it as a regression case (copy it to tests/fuzz/regressions/ once fixed).
#   scripts/fuzz.sh [SECONDS] [extra libFuzzer options...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-180}"
shift || true

CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DKAVRIN_FUZZ=ON -DKAVRIN_WITH_GUI=OFF -DKAVRIN_BENCH=OFF >/dev/null
cmake --build build-fuzz -j "$(nproc)" --target kavrin-fuzz-layout kavrin-fuzz-seeds

seeds=build-fuzz/seeds
mkdir -p "$seeds" build-fuzz/corpus build-fuzz/findings
build-fuzz/tests/fuzz/kavrin-fuzz-seeds "$seeds" ../shared/samples/*.anl3 examples/Demo.anl3 >/dev/null

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:allocator_may_return_null=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
build-fuzz/tests/fuzz/kavrin-fuzz-layout build-fuzz/corpus "$seeds" tests/fuzz/regressions \
    -dict=tests/fuzz/anl3.dict -max_len=65536 -timeout=20 -rss_limit_mb=2048 \
    -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix=build-fuzz/findings/ "$@"
