#!/usr/bin/env bash
# Installs the Debian packages that building, testing and checking need. Says nothing when all of them are there.
set -euo pipefail

packages=(
    # building
    build-essential g++ cmake ninja-build pkg-config python3 git
    libx11-dev libxext-dev libxt-dev libmotif-dev libpng-dev libdxflib-dev
    libxft-dev libxrender-dev libfontconfig-dev libfreetype-dev libcairo2-dev fonts-dejavu-core
    # testing
    libgtest-dev libgmock-dev libbenchmark-dev libxtst-dev
    xvfb mwm openbox fvwm x11-utils x11-xkb-utils xkb-data xfonts-base imagemagick poppler-utils
    # checking
    clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev
)

if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system: install by other means what these packages hold: ${packages[*]}" >&2
    exit 0
fi

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing ${missing[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
install() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null >/dev/null
}
# The lists of packages may be missing or old: fetched only when the first try says so.
install 2>/dev/null || { "${as_root[@]}" apt-get update -qq </dev/null && install; }
