#!/usr/bin/env bash
# usage.sh PROGRAMS PICTURES SECONDS SEED NAME LAYOUT LOCKS: uses atelier on the display of the environment, with a
# keyboard of this layout ("us,fr" works in the second one) and with these locks on (num, caps, "num caps" or none).
# The drawings are copies in a folder of their own. Succeeds when no check failed.
set -uo pipefail

programs=$1 pictures=$2 seconds=$3 seed=$4 name=$5 layout=$6 locks=$7

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
plans=$(dirname "$0")/../plans
cp -- "$plans/maison.dxf" "$place/maison.dxf" || exit 1
echo "not a drawing" >"$place/casse.dxf"
printf '%s\n' 0 SECTION 2 ENTITIES 0 CIRCLE 8 0 10 0 20 0 40 5 0 LINE 8 0 10 -5 20 -5 11 5 21 5 0 ENDSEC 0 EOF \
    >"$place/Plan_A1.dxf"

setxkbmap -layout "$layout" || exit 1
group=0
[[ "$layout" != *,* ]] || group=1
keys=()
for lock in $locks; do
    case $lock in
        num) keys+=(Num_Lock) ;;
        caps) keys+=(Caps_Lock) ;;
    esac
done
mkdir -p "$pictures"
"$programs/atelier_usage" "$programs/atelier" "$pictures" "$place" "$seconds" "$seed" "$name" "$group" "${keys[@]}"
