#!/usr/bin/env bash
# readme.sh BUILD TEXT: every ```c block of TEXT with a main compiles as printed against the installed tree, and without a
# display it reports that and ends.
source "$(dirname "$0")/common.sh"
awk -v place="$place" '/^```c$/ { inside = 1; next } /^```$/ { if (inside) ++n; inside = 0 } inside { print > (place "/block" n ".c") }' "$2"
programs=0
for block in "$place"/block*.c; do
    grep -q "^int main(" "$block" || continue
    programs=$((programs + 1))
    libraries=(grx grx-host)
    ! grep -q 'grx_plus_papier\.h' "$block" || libraries=(grx-papier "${libraries[@]}")
    cc -std=c11 $strict $flags "$block" -o "$place/program" $(pkg-config --cflags --libs "${libraries[@]}")
    code=0
    told=$(timeout 20 "$place/program" </dev/null) || code=$?
    [ "$code" -lt 124 ] || { echo "$block: without a display it ends with $code"; exit 1; }
    grep -q "Code 11: Error opening DISPLAY" <<<"$told" || { printf '%s: without a display it prints:\n%s\n' "$block" "$told"; exit 1; }
done
[ $programs -gt 0 ] || { echo "$2 has no C program"; exit 1; }
