#!/usr/bin/env bash
# Installs the library into a scratch folder, static and shared, and builds and runs the consumer
# project against it, with find_package and with pkg-config.
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

for shared in OFF ON; do
  build=$scratch/build-$shared prefix=$scratch/prefix-$shared
  cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=$shared \
    -DTOVIKXML_BUILD_TESTS=OFF -DTOVIKXML_BUILD_BENCHMARKS=OFF -DTOVIKXML_BUILD_EXAMPLES=OFF \
    -DCMAKE_INSTALL_PREFIX="$prefix" >/dev/null
  cmake --build "$build" >/dev/null
  cmake --install "$build" >/dev/null

  cmake -S "$source/tests/consumer" -B "$scratch/consumer-$shared" -G Ninja \
    -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
  cmake --build "$scratch/consumer-$shared" >/dev/null
  "$scratch/consumer-$shared/consumer" >/dev/null

  library_path=$(dirname "$(find "$prefix" -name 'libtovikxml.*' | head -1)")
  export PKG_CONFIG_PATH=$library_path/pkgconfig
  # shellcheck disable=SC2046
  c++ -std=c++17 "$source/tests/consumer/main.cpp" $(pkg-config --cflags --libs tovikxml) \
    -o "$scratch/with-pkg-config"
  LD_LIBRARY_PATH=$library_path "$scratch/with-pkg-config" >/dev/null
  echo "package: shared=$shared, find_package and pkg-config passed"
done
