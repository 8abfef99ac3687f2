#!/usr/bin/env bash
# Installs what is missing, builds the library, and runs the examples: an order, an envelope whose
# content nobody on the way knows, the shared MIME database of the system through every carrier, and
# the converter.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh g++ cmake ninja-build pkg-config libexpat1-dev zlib1g-dev \
  libpcre2-dev shared-mime-info

cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=Release -DTOVIKXML_BUILD_TESTS=OFF \
  -DTOVIKXML_BUILD_BENCHMARKS=OFF >/dev/null
cmake --build build/demo --target orders envelope mime_database tovikxml-convert
build/demo/examples/orders/orders
build/demo/examples/envelope/envelope
build/demo/examples/mime_database/mime_database

mkdir -p build/demo/convert
cp examples/guide/order.xml build/demo/convert
tools=$PWD/build/demo/tools/convert guide=$PWD/examples/guide
(cd build/demo/convert && PATH=$tools:$PATH sh "$guide/convert.sh")
