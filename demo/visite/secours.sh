#!/usr/bin/env bash
# secours.sh PROGRAMS: the server of a running atelier is killed. Succeeds when atelier ends with code 1 and has left the
# list of parts beside its drawing.
set -uo pipefail

programs=$1
place=$(mktemp -d)
cp -- "$(dirname "$0")/../plans/maison.dxf" "$place/" || exit 1
mkfifo "$place/number"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset 3>"$place/number" 2>/dev/null &
server=$!
trap 'kill -9 "$server" 2>/dev/null; rm -rf "$place"' EXIT
read -r display <"$place/number" || exit 1
ATELIER_MESURE=1 DISPLAY=:$display "$programs/atelier" "$place/maison.dxf" >"$place/told" 2>"$place/complaints" </dev/null &
atelier=$!
for _ in $(seq 400); do # until its drawing is on the screen
    grep -q image "$place/told" && break
    kill -0 "$atelier" 2>/dev/null || { echo "atelier ended by itself"; cat "$place/complaints"; exit 1; }
    sleep 0.05
done
kill -9 "$server"
wait "$server" 2>/dev/null
wait "$atelier"
code=$?
[ $code -eq 1 ] || { echo "atelier ended with $code"; exit 1; }
head -1 "$place/maison.secours.txt" | grep -q "Nomenclature de maison.dxf" || { echo "no list of parts"; exit 1; }
[ ! -e "$place/maison.notes" ] || { echo "notes that nobody made"; exit 1; }
