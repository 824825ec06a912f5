#!/usr/bin/env bash
# Configures and builds Saldeva with both cores; the program's folder ends up in build/Saldeva.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j 2
