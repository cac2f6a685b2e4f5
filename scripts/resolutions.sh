#!/usr/bin/env bash
# resolutions.sh [PROGRAMS [PICTURES]]: pictures of galerie and atelier on screens of 96, 144 and 192 dots per inch, each with its
# settings demo/config/INI_SYST_<dpi>.DAT. PROGRAMS is the folder of both, build/demo/demo by itself, PICTURES demo-output.
set -uo pipefail
self=$(realpath "$0")
cd "$(dirname "$0")/.."

programs=${1:-build/demo/demo}
pictures=${2:-demo-output}
[ -x "$programs/galerie" ] && [ -x "$programs/atelier" ] || { echo "no galerie and atelier in $programs" >&2; exit 2; }
mkdir -p "$pictures"
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
code=0

# atelier says nothing of being ready: the drawing is there when three pictures in a row are the same, and not black.
atelier_photo() {
    ATELIER_REP=$1 "$programs/atelier" "demo/plans/maison.dxf" &
    local atelier=$! same=0
    for _ in $(seq 200); do
        import -window root "$place/now.ppm" || break
        if cmp -s "$place/before.ppm" "$place/now.ppm" && [ "$(convert "$place/now.ppm" -format %k info:)" -gt 8 ]; then
            same=$((same + 1))
        else
            same=0
        fi
        [ $same -lt 3 ] || break
        mv "$place/now.ppm" "$place/before.ppm"
        sleep 0.1
    done
    [ $same -lt 3 ] || convert "$place/now.ppm" "$2"
    kill "$atelier" 2>/dev/null
    wait "$atelier" 2>/dev/null
    [ $same -eq 3 ]
}

if [ "${3:-}" = --atelier ]; then # on the server that is there
    atelier_photo "$4" "$5"
    exit
fi

for dpi in 96 144 192; do
    settings=$place/$dpi
    mkdir "$settings"
    ln -s "$PWD"/demo/{bin,icones,plans} "$settings/"
    cp -r demo/config "$settings/config"
    cp "demo/config/INI_SYST_$dpi.DAT" "$settings/config/INI_SYST.DAT"
    for page in "" panneaux boites dialogue additions; do
        scripts/with_x.sh --dpi $dpi --mwm demo/galerie/photo.sh "$programs/galerie" \
            "$pictures/galerie-${page:-controles}-${dpi}dpi.png" ${page:+--$page} --config "$settings/config" || code=1
    done
    scripts/with_x.sh --dpi $dpi --mwm "$self" "$programs" "$pictures" --atelier "$settings" \
        "$pictures/atelier-${dpi}dpi.png" || code=1
done
exit $code
