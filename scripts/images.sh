#!/usr/bin/env bash
# images.sh: makes docs/images/couleurs.png, the colours by their indices, with galerie on an X server of its own.
source "$(dirname "$0")/common.sh"

quiet cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGRX_TESTS=OFF -DGRX_BENCH=OFF || exit 1
quiet cmake --build build/demo -j "$jobs" --target galerie || exit 1
picture=docs/images/couleurs.png
scripts/with_x.sh demo/galerie/photo.sh build/demo/demo/galerie "$picture" --couleurs || exit 1
convert "$picture" -trim +repage -strip -colors 64 "$picture"
