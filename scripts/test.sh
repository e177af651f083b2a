#!/usr/bin/env bash
# Builds and runs every test: the normal build, then the Qt-free tests again
# under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh
(cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j 2)

cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKAVRIN_SANITIZE=ON -DKAVRIN_WITH_GUI=OFF >/dev/null
cmake --build build-asan -j "$(nproc)"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
(cd build-asan && ctest --output-on-failure -j 2)
