#!/usr/bin/env bash
# demo.sh [FILE.dxf]: installs what is missing, builds, and opens the drawing table atelier: on the display of the
# environment; or, without one, on an X server of its own under mwm, where a visit with real mouse and keys is played
# and pictures of it, and of galerie on 24 and 8 planes, are left in demo-output/.
display=${DISPLAY:-}
drawing=()
[ $# -eq 0 ] || drawing=("$(realpath -m -- "$1")")
source "$(dirname "$0")/common.sh"

scripts/setup.sh || exit 1
echo "Building in build/demo"
quiet cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGRX_TESTS=OFF -DGRX_BENCH=OFF || exit 1
quiet cmake --build build/demo -j "$jobs" --target atelier atelier_visite galerie || exit 1

if [ -n "$display" ]; then
    DISPLAY=$display exec build/demo/demo/atelier "${drawing[@]}"
fi

mkdir -p demo-output
echo '*' >demo-output/.gitignore
rm -f demo-output/*.png
scripts/with_x.sh --mwm demo/visite/visite.sh build/demo/demo demo-output "${drawing[@]}"
code=$?
for planes in 24 8; do
    scripts/with_x.sh --planes $planes --mwm demo/galerie/photo.sh build/demo/demo/galerie \
        demo-output/galerie-$planes.png || code=1
    for page in panneaux fichiers dialogue additions menu boites travail textes papier; do
        scripts/with_x.sh --planes $planes --mwm demo/galerie/photo.sh build/demo/demo/galerie \
            demo-output/$page-$planes.png --$page || code=1
    done
done
scripts/with_x.sh --mwm demo/galerie/photo.sh build/demo/demo/galerie demo-output/panneaux-grand.png --panneaux \
    --config demo/galerie/grand || code=1
echo "Pictures of the visit: $PWD/demo-output/"
exit $code
