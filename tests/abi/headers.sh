#!/bin/bash
# headers.sh <repo root>: each public header compiles alone, as C11 and as C++20, without a warning; grx_plus.h gathers the
# additions, which know nothing of X.
set -u
root=${1:?usage: headers.sh <repo root>}
warnings=(-Wall -Wextra -Wpedantic -Wconversion -Werror)
failed=0
count=0

# compile <header> <language> <standard> <compiler>
compile() {
    printf '#include "%s"\n#include "%s"\nextern int un_nom_au_moins;\n' "$1" "$1" |
        "$4" -x "$2" "-std=$3" "${warnings[@]}" -I"$root/inc" -I"$root/host" -fsyntax-only - || {
        echo "FAILED: $1 as $3"
        failed=$((failed + 1))
    }
}

shopt -s nullglob
for path in "$root"/inc/*.h "$root"/host/*.h; do
    compile "${path##*/}" c c11 "${CC:-cc}"
    compile "${path##*/}" c++ c++20 "${CXX:-c++}"
    count=$((count + 1))
done

# The additions name nothing of X, not even by way of another header.
if printf '#include "grx_plus.h"\n' | "${CC:-cc}" -x c -std=c11 -I"$root/inc" -I"$root/host" -M - | grep -E '/(X11|Xm)/'; then
    echo "FAILED: grx_plus.h leads to a header of X"
    failed=$((failed + 1))
fi
# A header that grx_plus.h forgets is not gathered.
for path in "$root"/inc/grx_plus_*.h; do
    grep -q "\"${path##*/}\"" "$root/inc/grx_plus.h" || {
        echo "FAILED: grx_plus.h does not include ${path##*/}"
        failed=$((failed + 1))
    }
done

if [ "$count" -eq 0 ]; then
    echo "no header found in $root/inc and $root/host"
    exit 1
fi
echo "$count headers, $failed failures"
[ "$failed" -eq 0 ]
