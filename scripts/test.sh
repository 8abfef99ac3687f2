#!/usr/bin/env bash
# Installs what is missing, then builds and runs everything that has to pass: the formatter check,
# the tests under sanitizers, with the other build of expat and without the scanner, the installed
# package with its consumers, the reference of the headers, and last all tests of the release build.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh g++ clang cmake ninja-build pkg-config clang-format-14 doxygen \
  libexpat1-dev zlib1g-dev libpcre2-dev libgtest-dev libbenchmark-dev shared-mime-info

step() { printf '\n=== %s\n' "$1"; }

# build_and_test PRESET TESTS [TARGET...]: quiet unless something fails.
build_and_test() {
  local preset=$1 tests=$2 log=build/$1.log
  shift 2
  mkdir -p build
  if ! { cmake --preset "$preset" && cmake --build "build/$preset" --target "${@:-all}"; } \
    >"$log" 2>&1; then
    tail -60 "$log"
    exit 1
  fi
  ctest --test-dir "build/$preset" -j2 -R "$tests" --output-on-failure >"$log" 2>&1 ||
    { tail -200 "$log"; exit 1; }
  tail -4 "$log"
}

step "format"
unformatted=$(git ls-files '*.h' '*.cpp' | xargs clang-format-14 --dry-run 2>&1 |
  grep -oE '^[^:]+\.(h|cpp)' | sort -u || true)
[[ -z $unformatted ]] || { printf 'not formatted:\n%s\n' "$unformatted"; exit 1; }

step "address and undefined-behaviour sanitizers"
build_and_test asan-ubsan .

step "thread sanitizer"
build_and_test tsan Thread test_binding test_threads test_values guide_threads

step "8-bit expat, without the scanner"
build_and_test narrow 'document|binding|example|fuzz'

step "package and consumers"
scripts/check_package.sh

step "reference"
cmake --preset release >/dev/null
cmake --build build/release --target docs

step "all tests, release build"
{ cmake --preset release && cmake --build build/release; } >build/release.log 2>&1 ||
  { tail -60 build/release.log; exit 1; }
ctest --test-dir build/release -j2 --output-on-failure
