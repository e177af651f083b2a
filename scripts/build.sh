#!/usr/bin/env bash
# Configures and builds Kavrin into build/ (Release with debug info).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKAVRIN_WITH_GUI=ON >/dev/null
cmake --build build -j "$(nproc)"
