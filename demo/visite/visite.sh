#!/usr/bin/env bash
# visite.sh PROGRAMS PICTURES [FILE.dxf]: runs atelier on the display of the environment, under mwm, and visits it.
# Succeeds when every step of the visit happened and atelier ended with code 0.
set -uo pipefail

programs=$1
pictures=$2
shift 2

# Files are written beside the drawing, a copy, and in directories there.
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
drawing=${1:-$(dirname "$0")/../plans/maison.dxf}
cp -- "$drawing" "$place/maison.dxf" || exit 1
echo "not a drawing" >"$place/casse.dxf"
printf '%s\n' 0 SECTION 2 ENTITIES 0 CIRCLE 8 0 10 0 20 0 40 5 0 LINE 8 0 10 -5 20 -5 11 5 21 5 0 ENDSEC 0 EOF \
    >"$place/petit.dxf"

TMPDIR=$place PLTSPOOL_DIR=$place/traceur "$programs/atelier" "$place/maison.dxf" &
atelier=$!
"$programs/atelier_visite" "$pictures" "$place" &
visit=$!

# The visit ends with closing atelier; an atelier that ends by itself leaves nothing to visit.
wait -n "$atelier" "$visit"
if ! kill -0 "$atelier" 2>/dev/null; then
    wait "$atelier"
    code=$?
    [ $code -eq 0 ] || kill "$visit" 2>/dev/null
    wait "$visit" || exit 1
    exit $code
fi
wait "$visit"
code=$?
for _ in $(seq 200); do
    kill -0 "$atelier" 2>/dev/null || break
    [ $code -eq 0 ] || break
    sleep 0.05
done
if kill -0 "$atelier" 2>/dev/null; then
    [ $code -ne 0 ] || echo "visite: atelier ne se termine pas" >&2
    kill "$atelier"
    wait "$atelier" 2>/dev/null
    exit 1
fi
wait "$atelier" || exit 1
exit $code
