#!/usr/bin/env bash
# fuzz.sh [seconds]: coverage-guided fuzzing of what reads menu lines, bitmap files, pictures, font files, texts of panel items
# and questions, and of the quoting for the shell, with libFuzzer of clang 14, each for that long (60 without it), starting from
# tests/fuzz/corpus_*. An input that fails is left in build/fuzz/.
source "$(dirname "$0")/common.sh"

seconds=${1:-60}
out=build/fuzz
flags=(-std=c++20 -g1 -O1 -fno-exceptions -fsanitize=address,undefined -fno-sanitize-recover=undefined
    -Iinc -Ihost -Ix11 -isystem /usr/include/freetype2)
mkdir -p "$out"

library=()
for source in x11/*/*.cpp host/standalone/*.cpp; do
    object=$out/$(basename "$source" .cpp).o
    library+=("$object")
    [ "$object" -nt "$source" ] && [ "$object" -nt "$(ls -t x11/*/*.h inc/*.h host/*.h | head -1)" ] && continue
    quiet clang++-14 "${flags[@]}" -fsanitize=fuzzer-no-link -c "$source" -o "$object" || exit 1
done

code=0
for name in menu_line:menu bitmap:bitmap item_text:item question:question quote:quote font:font png:png true_bitmap:bmp; do
    target=${name%:*}
    corpus=$out/corpus_${name#*:}
    mkdir -p "$corpus"
    quiet clang++-14 "${flags[@]}" -fsanitize=fuzzer "tests/fuzz/libfuzzer/${target}_fuzzer.cpp" "${library[@]}" \
        -lXm -lXt -lXext -lpng -lz -lXft -lXrender -lfontconfig -lfreetype -lX11 -o "$out/${target}_fuzzer" || exit 1
    echo "$target, $seconds s"
    "$out/${target}_fuzzer" -max_total_time="$seconds" -max_len=4096 -rss_limit_mb=1024 -print_final_stats=1 \
        -artifact_prefix="$out/${target}_" "$corpus" "tests/fuzz/corpus_${name#*:}" >"$out/$target.log" 2>&1 || code=1
    [ $code -eq 0 ] || tail -40 "$out/$target.log"
    grep -E 'cov: ' "$out/$target.log" | tail -1
    grep -E 'number_of_executed_units|peak_rss_mb' "$out/$target.log"
done
exit $code
