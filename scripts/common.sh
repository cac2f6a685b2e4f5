# shellcheck shell=bash
# Sourced by the scripts: the project's root is the current folder, nothing is read from the terminal.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
exec </dev/null
unset DISPLAY
jobs=${GRX_JOBS:-$(nproc)}

# quiet COMMAND...: runs it and shows what it said only when it failed.
quiet() {
    local log code
    log=$(mktemp)
    "$@" >"$log" 2>&1
    code=$?
    [ $code -eq 0 ] || cat "$log"
    rm -f "$log"
    return $code
}

# build PRESET: configures and builds it in build/PRESET.
build() {
    quiet cmake --preset "$1" && quiet cmake --build --preset "$1" -j "$jobs"
}

# run_tests PRESET [ctest arguments...]: ctest's own summary is the last thing printed. Tests wait for their servers, so one
# more of them runs than there are processors.
run_tests() {
    local preset=$1
    shift
    ctest --preset "$preset" -j $((jobs + 1)) --no-label-summary --no-tests=error --output-on-failure "$@" |
        grep -vE '^ +Start +[0-9]+:|\.\.\. +Passed '
    return "${PIPESTATUS[0]}"
}
