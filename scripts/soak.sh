#!/usr/bin/env bash
# soak.sh [MINUTES [FILTER]]: opens and closes everything that the library can show, with real clicks, for that long (10
# without it) shared among the kinds, each in a process and on a server of its own. Fails when something grows from the
# hundredth round on: blocks of the host, descriptors, windows, pixmaps and contexts of the server, or memory.
source "$(dirname "$0")/common.sh"

minutes=${1:-10}
filter=${2:-*}
scripts/setup.sh && quiet cmake --preset default || exit 1
quiet cmake --build --preset default -j "$jobs" --target soak_tests || exit 1
program=build/default/tests/soak_tests
stories=$("$program" --gtest_list_tests --gtest_filter="$filter" | sed -n 's/^  /Soak./p')
code=0
for story in $stories; do
    GRX_SOAK_MINUTES=$minutes "$program" --gtest_filter="$story" >"build/soak.log" 2>&1 || {
        code=1
        cat build/soak.log
        continue
    }
    grep ' rounds, ' build/soak.log
done
[ $code -eq 0 ] && echo "Nothing grew."
exit $code
