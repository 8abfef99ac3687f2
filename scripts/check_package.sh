#!/usr/bin/env bash
# Builds the library twice, static with g++ and shared with clang++, each as a folder of the consumer
# project, and installs it where the path has a blank and letters outside ASCII. Then builds and runs
# the consumer against what was installed, with find_package and with pkg-config, with both compilers
# in C++17 and C++20, and compiles each installed header alone. Warnings are errors.
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
warnings=(-Wall -Wextra -Wpedantic -Wconversion -Werror)

# quietly COMMAND...: what it prints is shown only if it fails.
quietly() {
  "$@" >"$scratch/log" 2>&1 || { printf 'failed: %s\n' "$*"; tail -40 "$scratch/log"; exit 1; }
}

# run_consumers FOLDER: those of both language levels.
run_consumers() {
  quietly "$1/consumer_17"
  quietly "$1/consumer_20"
}

build_and_install() {
  local compiler=$1 shared=$2 build=$3 prefix=$4
  quietly cmake -S "$source/tests/consumer" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_COMPILER="$compiler" -DBUILD_SHARED_LIBS="$shared" \
    -DTOVIKXML_SOURCE_DIR="$source" -DTOVIKXML_INSTALL=ON
  quietly cmake --build "$build"
  run_consumers "$build"
  quietly cmake --install "$build" --prefix "$prefix"
}

with_find_package() {
  local compiler=$1 prefix=$2 build=$scratch/with-find-package-$1
  rm -rf "$build"
  quietly cmake -S "$source/tests/consumer" -B "$build" -G Ninja \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix"
  quietly cmake --build "$build"
  run_consumers "$build"
}

# Blanks come escaped for a shell, hence eval. The static package gives its flags with and
# without --static.
with_pkg_config() {
  local compiler=$1 shared=$2 library_path=$3 standard static=()
  for standard in 17 20; do
    [[ $shared == ON || $standard == 17 ]] || static=(--static)
    local flags
    flags=$(PKG_CONFIG_PATH=$library_path/pkgconfig pkg-config --cflags --libs "${static[@]}" tovikxml)
    eval "flags=($flags)"
    quietly "$compiler" -std=c++$standard "${warnings[@]}" "$source/tests/consumer/main.cpp" \
      "${flags[@]}" -o "$scratch/with-pkg-config"
    LD_LIBRARY_PATH=$library_path quietly "$scratch/with-pkg-config"
  done
}

# Only what is installed is in the include path, so that a header which leads to an internal one
# does not compile.
headers_alone() {
  local include=$1 compiler
  for compiler in g++ clang++; do
    (cd "$include" && find tovikxml -name '*.h' -print0) |
      quietly xargs -0 -P "$(nproc)" -I '{}' "$compiler" -std=c++17 "${warnings[@]}" \
        -fsyntax-only -I "$include" -include '{}' -x c++ /dev/null
  done
}

for shared in OFF ON; do
  build=$scratch/build-$shared prefix="$scratch/über παντού/$shared"
  [[ $shared == OFF ]] && compiler=g++ || compiler=clang++
  build_and_install $compiler $shared "$build" "$prefix"
  echo "package: shared=$shared with $compiler, add_subdirectory passed"
  library_path=$(dirname "$(find "$prefix" -name 'libtovikxml.*' | head -1)")
  for compiler in g++ clang++; do
    with_find_package $compiler "$prefix"
    with_pkg_config $compiler $shared "$library_path"
    echo "package: shared=$shared, find_package and pkg-config passed with $compiler"
  done
done
headers_alone "$prefix/include"
echo "package: $(find "$prefix/include" -name '*.h' | wc -l) headers compile alone"
