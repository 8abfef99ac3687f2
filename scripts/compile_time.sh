#!/usr/bin/env bash
# What the headers cost who includes them: for a class of the orders example and for each public
# header alone, the lines behind the preprocessor and the processor seconds of compiling at -O2 (the
# least of several rounds); for the class also the bytes of the object file, less debug information.
#   scripts/compile_time.sh BUILD_FOLDER [ROUNDS]
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
build=$1 rounds=${2:-5}
flags=(-std=c++17 -O2 -DTOVIKXML_STATIC_DEFINE -I "$source" -I "$build/generated" -x c++)
object=$(mktemp)
trap 'rm -f "$object"' EXIT
export TIMEFORMAT='%U %S'

# cost COMPILER FILE: lines, seconds and bytes.
cost() {
  local lines seconds round
  lines=$("$1" "${flags[@]}" -E -P "$2" | wc -l)
  seconds=$(for ((round = 0; round < rounds; ++round)); do
    { time "$1" "${flags[@]}" -c "$2" -o "$object"; } 2>&1
  done | awk '{ s = $1 + $2; if (NR == 1 || s < least) least = s } END { printf "%.2f", least }')
  printf '%-8s %-42s %7d %6s %8d\n' "$1" "${2#"$source"/}" "$lines" "$seconds" \
    "$(size "$object" | awk 'NR == 2 { print $1 + $2 + $3 }')"
}

printf '%-8s %-42s %7s %6s %8s\n' compiler source lines s bytes
for compiler in g++ clang++; do
  cost $compiler "$source/examples/orders/generated/item.cpp"
  cost $compiler "$source/tovikxml/tovikxml.h"
done
cd "$source"
for header in $(sed -n 's/^#include "\(.*\)"$/\1/p' tovikxml/tovikxml.h); do
  cost g++ "$source/$header"
done
