#!/usr/bin/env bash
# Checks the library as its users meet it. Installs it static as README.md says, where the path has a
# blank and letters outside ASCII, and shared from a project that holds it as a folder. Then builds
# and runs the consumer against what was installed, with find_package and with pkg-config, with both
# compilers in C++17 and C++20, and compiles each installed header alone. Warnings are errors.
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

install_as_readme_says() {
  mkdir -p "$scratch/source" "$HOME"
  (cd "$source" && git ls-files -z | xargs -0 cp --parents -t "$scratch/source")
  (cd "$scratch/source" && CMAKE_GENERATOR=Ninja CXX=g++ quietly sh examples/guide/install.sh)
}

# as_folder COMPILER SHARED BUILD_FOLDER: the library as a folder of the consumer project.
as_folder() {
  quietly cmake -S "$source/tests/consumer" -B "$3" -G Ninja -DCMAKE_CXX_COMPILER="$1" \
    -DBUILD_SHARED_LIBS="$2" -DCMAKE_BUILD_TYPE=Debug -DTOVIKXML_SOURCE_DIR="$source" \
    -DTOVIKXML_INSTALL=ON
  quietly cmake --build "$3"
  run_consumers "$3"
  echo "package: add_subdirectory passed with $1, shared=$2"
}

with_find_package() {
  local compiler=$1 prefix=$2 build=$scratch/with-find-package-$1
  rm -rf "$build"
  quietly cmake -S "$source/tests/consumer" -B "$build" -G Ninja \
    -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_PREFIX_PATH="$prefix"
  quietly cmake --build "$build"
  run_consumers "$build"
}

# The project that the guide begins with.
guide_project() {
  quietly cmake -S "$source/examples/guide/app" -B "$scratch/app" -G Ninja \
    -DCMAKE_PREFIX_PATH="$1"
  quietly cmake --build "$scratch/app"
  quietly "$scratch/app/app" "$source/examples/guide/order.xml"
  [[ $(<"$scratch/log") == $'/order/item[1]\n/order/item[2]\n/order/note' ]]
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

# documents_lead_on PREFIX: the README and the guide are there, and every file that they link to.
documents_lead_on() {
  local folder document link
  folder=$(dirname "$(find "$1/share/doc" -maxdepth 2 -name README.md)")
  for document in "$folder"/*.md "$folder"/docs/*.md "$folder"/docs/guide/*.md; do
    while read -r link; do
      [[ -e $(dirname "$document")/$link ]] || { echo "$document leads to no $link"; return 1; }
    done < <(grep -oE '[^[]\]\([^) #:]+\)' "$document" | sed 's/.*(//; s/)//')
  done
}

# Only what is installed is in the include path, so that a header which leads to an internal one
# does not compile. Nor may one bring in what costs every source that includes it.
headers_alone() {
  local include=$1 compiler
  if grep -rnE '#include <(algorithm|functional|iomanip|iostream|locale|regex|sstream)>' "$include"
  then
    echo "a public header includes a heavy one"
    exit 1
  fi
  for compiler in g++ clang++; do
    (cd "$include" && find tovikxml -name '*.h' -print0) |
      quietly xargs -0 -P "$(nproc)" -I '{}' "$compiler" -std=c++17 "${warnings[@]}" \
        -fsyntax-only -I "$include" -include '{}' -x c++ /dev/null
  done
}

# against SHARED PREFIX: all consumers of what is installed there.
against() {
  local shared=$1 prefix=$2 library_path compiler
  library_path=$(dirname "$(find "$prefix" -name 'libtovikxml.*' | head -1)")
  for compiler in g++ clang++; do
    with_find_package $compiler "$prefix"
    with_pkg_config $compiler "$shared" "$library_path"
    echo "package: find_package and pkg-config passed with $compiler, shared=$shared"
  done
}

export HOME="$scratch/über παντού"
install_as_readme_says
against OFF "$HOME/tovikxml"
guide_project "$HOME/tovikxml"
documents_lead_on "$HOME/tovikxml"

as_folder g++ OFF "$scratch/folder"
as_folder clang++ ON "$scratch/shared folder"
quietly cmake --install "$scratch/shared folder" --prefix "$HOME/shared"
against ON "$HOME/shared"

headers_alone "$HOME/shared/include"
echo "package: $(find "$HOME/shared/include" -name '*.h' | wc -l) headers compile alone"
