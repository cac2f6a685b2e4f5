#!/usr/bin/env bash
# photo.sh GALERIE PICTURE [OPTION...]: runs galerie with these options on the display of the environment and leaves a
# picture of the screen.
set -uo pipefail

galerie=$1
picture=$2
shift 2
ready=$(mktemp -u)
"$galerie" --pret "$ready" "$@" &
galerie=$!
trap 'kill "$galerie" 2>/dev/null; rm -f "$ready"' EXIT
for _ in $(seq 400); do
    [ -e "$ready" ] && break
    kill -0 "$galerie" 2>/dev/null || { echo "galerie ended by itself" >&2; exit 1; }
    sleep 0.05
done
[ -e "$ready" ] || { echo "galerie shows nothing" >&2; exit 1; }
import -window root "$picture"
