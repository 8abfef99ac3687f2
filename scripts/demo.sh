#!/usr/bin/env bash
# Installs what is missing, builds the library, and runs the examples on real input: an order, and
# the shared MIME database of the system.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh g++ cmake ninja-build pkg-config libexpat1-dev zlib1g-dev \
  libpcre2-dev shared-mime-info

cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=Release -DTOVIKXML_BUILD_TESTS=OFF \
  -DTOVIKXML_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/demo --target orders mime_database
build/demo/examples/orders/orders
build/demo/examples/mime_database/mime_database
