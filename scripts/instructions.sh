#!/usr/bin/env bash
# Instructions per byte of XML, counted by callgrind: the difference between one and two rounds of
# the work, so that loading and set-up do not count.
#   scripts/instructions.sh BUILD_FOLDER WORK FILE [PROGRAM]
set -euo pipefail
build=$1 work=$2 file=$3 program=${4:-$1/bench/measure}
count() {
  valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$work" "$file" "$1" 2>&1 |
    awk '/Collected/ { print $4 }'
}
one=$(count 1)
two=$(count 2)
size=$(stat -c %s "$file")
awk -v d=$((two - one)) -v s="$size" -v w="$work" 'BEGIN { printf "%-14s %8.1f\n", w, d / s }'
