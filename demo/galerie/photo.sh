#!/usr/bin/env bash
# photo.sh GALERIE PICTURE [OPTION...]: runs galerie with these options on the display of the environment and leaves a
# picture of the screen, once galerie has drawn everything and two pictures in a row are the same.
set -uo pipefail

galerie=$1
picture=$2
shift 2
place=$(mktemp -d)
ready=$place/ready
"$galerie" --pret "$ready" "$@" &
galerie=$!
trap 'kill "$galerie" 2>/dev/null; rm -rf "$place"' EXIT
for _ in $(seq 400); do
    [ -e "$ready" ] && break
    kill -0 "$galerie" 2>/dev/null || { echo "galerie ended by itself" >&2; exit 1; }
    sleep 0.05
done
[ -e "$ready" ] || { echo "galerie shows nothing" >&2; exit 1; }
import -window root "$place/before.ppm" || exit 1
for _ in $(seq 100); do
    import -window root "$place/now.ppm" || exit 1
    if cmp -s "$place/before.ppm" "$place/now.ppm"; then
        convert "$place/now.ppm" "$picture"
        exit
    fi
    mv "$place/now.ppm" "$place/before.ppm"
done
echo "galerie does not come to rest" >&2
exit 1
