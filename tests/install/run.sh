#!/usr/bin/env bash
# run.sh BUILD: installs BUILD into a folder of its own and builds and runs customers of it,
# in C and C++, by pkg-config and by CMake. None of them needs a display.
source "$(dirname "$0")/common.sh"

expected='GFX ERROR
Code 8: Reading problem on config file
->Default values setting'

check() {
    local told
    told=$("$1") || { echo "$1 failed: $told"; exit 1; }
    [ "$told" = "$expected" ] || { printf '%s printed:\n%s\n' "$1" "$told"; exit 1; }
    echo "$(basename "$1"): good"
}

cc -std=c11 $strict $flags "$here/consumer.c" -o "$place/pc_c" $(pkg-config --cflags --libs grx grx-host)
c++ -std=c++20 $strict $flags "$here/consumer.cpp" -o "$place/pc_cpp" $(pkg-config --cflags --libs grx grx-host)
# As distributions link by default: what is not named is dropped.
c++ -std=c++20 $strict $flags -Wl,--as-needed "$here/consumer.cpp" -o "$place/pc_cpp_as_needed" \
    $(pkg-config --cflags --libs grx grx-host)
for program in pc_c pc_cpp pc_cpp_as_needed; do check "$place/$program"; done

cmake -G Ninja -S "$here" -B "$place/cmake" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" >"$place/log" 2>&1 || { cat "$place/log"; exit 1; }
cmake --build "$place/cmake" -j2 >"$place/log" 2>&1 || { cat "$place/log"; exit 1; }
for program in cmake_c cmake_cpp cmake_c_static; do check "$place/cmake/$program"; done

for file in lib/libgrx.so.1 include/grx/xt_f.h include/grx/host_f.h; do
    [ -n "$(find "$prefix" -path "*${file##*/}")" ] || { echo "$file is not installed"; exit 1; }
done
