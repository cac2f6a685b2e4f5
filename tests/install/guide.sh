#!/usr/bin/env bash
# guide.sh BUILD GUIDE: the whole programs among the ```c blocks of GUIDE compile as printed against the installed tree, and
# the one that saves its work does so when its server goes, without a word.
source "$(dirname "$0")/common.sh"
awk -v place="$place" '/^```c$/ { inside = 1; text = ""; next }
    /^```$/ && inside { inside = 0; if (text ~ /int main/) { printf "%s", text >(place "/program" ++n ".c") } next }
    inside { text = text $0 "\n" }' "$2"
[ -s "$place/program2.c" ] || { echo "the guide has fewer than two programs"; exit 1; }
for source in "$place"/program*.c; do
    cc -std=c11 $strict $flags "$source" -o "${source%.c}" $(pkg-config --cflags --libs grx grx-host)
done

saver=$(grep -l save_work "$place"/program*.c)
cd "$place"
mkfifo number
Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset 3>number 2>/dev/null &
server=$!
trap 'kill -9 $server 2>/dev/null || true; rm -rf "$place"' EXIT
read -r display <number
DISPLAY=:$display "${saver%.c}" >told 2>&1 </dev/null &
program=$!
for _ in $(seq 200); do # until its window is on the screen
    [ "$(DISPLAY=:$display xwininfo -root -tree 2>/dev/null | grep -c 400x300)" = 0 ] || break
    sleep 0.05
done
kill -9 $server
wait $server 2>/dev/null || true
wait $program && code=0 || code=$?
[ "$code" = 1 ] || { echo "it ended with $code"; exit 1; }
[ ! -s told ] || { echo "it printed:"; cat told; exit 1; }
grep -qx '0 points' recovered.txt || { echo "nothing was saved"; exit 1; }
