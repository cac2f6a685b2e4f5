#!/usr/bin/env bash
# readme.sh BUILD TEXT: the first ```c block of TEXT compiles as printed against the installed tree, and
# without a display it reports that and ends.
source "$(dirname "$0")/common.sh"
awk '/^```c$/ { inside = 1; next } /^```$/ && inside { exit } inside' "$2" >"$place/program.c"
[ -s "$place/program.c" ] || { echo "$2 has no C program"; exit 1; }
cc -std=c11 $strict $flags "$place/program.c" -o "$place/program" $(pkg-config --cflags --libs grx grx-host)
told=$(timeout 20 "$place/program" </dev/null) || code=$?
[ "${code:-0}" -lt 124 ] || { echo "without a display it ends with $code"; exit 1; }
grep -q "Code 11: Error opening DISPLAY" <<<"$told" || { printf 'without a display it prints:\n%s\n' "$told"; exit 1; }
