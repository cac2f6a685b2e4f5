#!/usr/bin/env bash
# test.sh [ctest arguments...]: installs what is missing, builds everything and runs all tests, each display test on X
# servers of its own. No display is needed.
source "$(dirname "$0")/common.sh"
scripts/setup.sh || exit 1
echo "Building in build/default"
build default || exit 1
run_tests default "$@"
