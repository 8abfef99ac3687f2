#!/usr/bin/env bash
# Instructions per byte of XML, counted by callgrind: the difference between one and two rounds of
# the work, so that loading and set-up do not count. Prints the table of docs/performance.md, or one
# row of it.
#   scripts/instructions.sh BUILD_FOLDER [WORK FILE [PROGRAM]]
set -euo pipefail
build=$1 program=${4:-$1/bench/measure}

count() {  # WORK FILE ROUNDS
  valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$@" 2>&1 |
    awk '/Collected/ { print $4 }'
}

row() {  # WORK FILE
  local one two
  one=$(count "$1" "$2" 1)
  two=$(count "$1" "$2" 2)
  awk -v d=$((two - one)) -v s="$(stat -Lc %s "$2")" -v w="$1" -v f="$(basename "$2" .xml)" \
    'BEGIN { printf "%-20s %-12s %10d %14d %8.1f\n", w, f, s, d, d / s }'
}

rows() {  # FILE WORK...
  local file=$1 work
  shift
  for work; do row "$work" "$file"; done
}

printf '%-20s %-12s %10s %14s %8s\n' work document bytes instructions "per byte"
if (($# > 1)); then
  row "$2" "$3"
  exit
fi

documents=$(mktemp -d)
trap 'rm -rf "$documents"' EXIT
shape() {  # NAME SIZE
  "$build/bench/genshape" "$1" "$2" "$documents/$1.xml"
}
"$build/bench/gendoc" 1000000 "$documents/orders.xml" "$documents/orders.json" >/dev/null
rows "$documents/orders.xml" tree tree-wide orders-read orders-bind orders-write \
  orders-json-write orders-json-read fi-tree fi-read fi-write fi-write-suggested
for name in text numbers; do
  shape $name 1000000
  rows "$documents/$name.xml" tree orders-read orders-write
done
shape message 589
rows "$documents/message.xml" tree orders-read orders-write
shape namespaces 1000000
shape names 1000000
shape large 20000000
for name in namespaces names large; do rows "$documents/$name.xml" tree; done
mime=/usr/share/mime/packages/freedesktop.org.xml
if [[ -e $mime ]]; then
  ln -s $mime "$documents/mime.xml"
  rows "$documents/mime.xml" tree mime-read mime-write
fi
