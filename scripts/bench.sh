#!/usr/bin/env bash
# bench.sh: measures the library beside plain Xlib and Motif, and what n and 2n of the same cost, each program on an X
# server of its own; prints the tables and leaves them in docs/performance.md. Best on a machine that does nothing else.
source "$(dirname "$0")/common.sh"

scripts/setup.sh && build default || exit 1
page=docs/performance.md

# title PROGRAM: what a program measures, in a line.
title() {
    case $1 in
        primitives) echo "Drawing, beside plain Xlib" ;;
        screen_saving) echo "Drawing on a screen that the server saves" ;;
        texts) echo "Texts in drawings, beside plain Xlib" ;;
        pictures) echo "Pictures, beside plain Xlib" ;;
        startup) echo "Start to first exposure, beside plain Motif" ;;
        far_display) echo "A display behind a line of 50 ms, beside plain Motif" ;;
        controls) echo "Controls and menus, beside plain Motif, n and 2n" ;;
        panels) echo "Panels and lists, beside plain Motif, n and 2n" ;;
        icons) echo "Icons, n and 2n" ;;
        files) echo "File dialogs, beside plain Motif" ;;
        atelier_frames) echo "Pictures a second of the sample host" ;;
        *) echo "$1" ;;
    esac
}

tables() {
    local program name
    for program in build/default/bench/bench_*; do
        [ -x "$program" ] && [ ! -d "$program" ] || continue
        name=${program##*/bench_}
        printf '\n## %s\n\n```\n' "$(title "$name")"
        scripts/with_x.sh "$program" 2>/dev/null | grep -vE "^GFX ERROR|^Code 2:" # they have no menu file
        printf '```\n'
    done
}

{
    cat <<MSG
# Performance

Made by \`scripts/bench.sh\` on $(LC_ALL=C date '+%e %B %Y' | sed 's/^ //'): $(nproc) cores, load $(cut -d' ' -f1 /proc/loadavg) before, Xvfb, g++ $(g++ -dumpfullversion).
Each line has both sides in one process, in rounds that alternate. A ratio above 1 means that the library takes longer,
but for the throughput of drawing, where it means that the library is faster. What the gate \`bench\` accepts stands in
each program.
MSG
    tables
} >"$page.new"
mv "$page.new" "$page"
cat "$page"
