# Sourced by the checks of an installed tree. $1 is the build folder, CUSTOMER_FLAGS what customers must be built with too.
set -euo pipefail
build=$1
flags=${CUSTOMER_FLAGS:-}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
prefix=$place/prefix
cmake --install "$build" --prefix "$prefix" >"$place/log" 2>&1 || { cat "$place/log"; exit 1; }
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name grx.pc)")
LD_LIBRARY_PATH=$(dirname "$PKG_CONFIG_PATH")
export PKG_CONFIG_PATH LD_LIBRARY_PATH
strict="-Wall -Wextra -Wpedantic -Werror"
unset DISPLAY
