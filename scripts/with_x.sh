#!/usr/bin/env bash
# with_x.sh [--planes 24|8|16] [--dpi N] [--mwm|--openbox|--fvwm] COMMAND...: runs COMMAND on an X server of its own, which ends with it.
# --dpi N: a screen of that resolution, with as many pixels as a screen of the same size has then.
set -euo pipefail

planes=24
dpi=96
manager=
while [ $# -gt 0 ]; do
    case $1 in
        --planes) planes=$2; shift 2 ;;
        --dpi) dpi=$2; shift 2 ;;
        --mwm | --openbox | --fvwm) manager=${1#--}; shift ;;
        *) break ;;
    esac
done
[ $# -gt 0 ] || { sed -n 's/^# //p' "$0" | head -n 1 >&2; exit 2; }

place=$(mktemp -d)
server=
wm=
finish() {
    [ -z "$wm" ] || kill -KILL "$wm" 2>/dev/null || true
    [ -z "$server" ] || { kill "$server" 2>/dev/null && wait "$server" 2>/dev/null; } || true
    rm -rf "$place"
}
trap finish EXIT
trap 'exit 130' INT TERM

mkfifo "$place/number"
Xvfb -displayfd 3 -screen 0 "$((1280 * dpi / 96))x$((1024 * dpi / 96))x$planes" -dpi "$dpi" -noreset -nolisten tcp 3>"$place/number" 2>"$place/log" &
server=$!
read -r -t 30 number <"$place/number" || { cat "$place/log" >&2; exit 1; }
export DISPLAY=":$number"

if [ -n "$manager" ]; then
    command=("$manager")
    [ "$manager" != fvwm ] || command+=(-f /dev/null)
    "${command[@]}" >/dev/null 2>&1 &
    wm=$!
    disown # nobody wants to hear of its end
    sign=_MOTIF_WM_INFO
    [ "$manager" = mwm ] || sign=_NET_SUPPORTING_WM_CHECK
    for _ in $(seq 200); do
        xprop -root "$sign" 2>/dev/null | grep -qE '[=#]' && break
        sleep 0.05
    done
fi

"$@"
