#!/usr/bin/env bash
# use.sh [MINUTES] [--manager mwm|openbox|none]... [--layout us|fr|us,fr]... [--locks none|num|caps]... [--seed N]
#        [--step NAME]:
# uses atelier as a hand does, with real mouse and keys on X servers of its own, for so many minutes (60) shared among
# the combinations: all managers with us and fr and NumLock on where nothing is asked for. Steps come in an order that
# the seed gives, which is printed, so that a failure can be repeated. Every check that fails is told and leaves a
# picture; use-output/ has pictures of all windows and a contact sheet for each combination. The exit code is 0 when no
# check failed.
source "$(dirname "$0")/common.sh"

minutes=60 seed=$((RANDOM * 32768 + RANDOM)) managers=() layouts=() locks=()
while [ $# -gt 0 ]; do
    case $1 in
        --manager) managers+=("$2"); shift 2 ;;
        --layout) layouts+=("$2"); shift 2 ;;
        --locks) locks+=("$2"); shift 2 ;;
        --seed) seed=$2; shift 2 ;;
        --step) export USE_STEP=$2; shift 2 ;; # the only one, by the name that a failure tells
        *[!0-9.]* | "") sed -n 's/^# //p' "$0" | head -n 1 >&2; exit 64 ;;
        *) minutes=$1; shift ;;
    esac
done
[ ${#managers[@]} -gt 0 ] || managers=(mwm openbox none)
[ ${#layouts[@]} -gt 0 ] || layouts=(us fr)
[ ${#locks[@]} -gt 0 ] || locks=(num)

programs=${GRX_PROGRAMS:-}
if [ -z "$programs" ]; then
    programs=build/demo/demo
    quiet cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGRX_TESTS=OFF -DGRX_BENCH=OFF || exit 1
    quiet cmake --build build/demo -j "$jobs" --target atelier atelier_usage || exit 1
fi
pictures=${GRX_PICTURES:-use-output}
mkdir -p "$pictures"
echo '*' >"$pictures/.gitignore"
rm -f "$pictures"/*.png

count=$((${#managers[@]} * ${#layouts[@]} * ${#locks[@]}))
seconds=$(awk "BEGIN { print int($minutes * 60 / $count) }")
echo "seed $seed, $count combinations of $seconds s"
code=0
for manager in "${managers[@]}"; do
    for layout in "${layouts[@]}"; do
        for lock in "${locks[@]}"; do
            name=$manager-${layout/,/+}-$lock
            with=()
            [ "$manager" = none ] || with=("--$manager")
            scripts/with_x.sh "${with[@]}" demo/visite/usage.sh "$programs" "$pictures" "$seconds" "$seed" "$name" \
                "$layout" "$lock" || code=1
            shown=("$pictures/$name"-*.png)
            [ ! -e "${shown[0]}" ] || montage -label '%t' -geometry 426x341+4+4 -tile 4x "${shown[@]}" \
                "$pictures/sheet-$name.png" || code=1
        done
    done
done
echo "Pictures: $(realpath "$pictures")"
exit $code
