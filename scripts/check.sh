#!/usr/bin/env bash
# check.sh [GATE...]: what every change has to pass besides its tests. Without arguments all gates run; the last one
# runs all tests once more under the sanitizers, and its summary ends the output.
source "$(dirname "$0")/common.sh"

sources() { git ls-files -- "$@" | while read -r file; do [ ! -f "$file" ] || echo "$file"; done; }

gate_format() { sources '*.c' '*.cpp' '*.h' | xargs -r clang-format-14 --dry-run -Werror; }

gate_layers() { build default && python3 scripts/layers.py; }
gate_sizes() { python3 scripts/sizes.py; }
gate_words() { python3 scripts/words.py; }

gate_shell() {
    local file code=0
    for file in $(sources 'scripts/*.sh' 'tests/*.sh' '.ci/run'); do bash -n "$file" || code=1; done
    return $code
}

gate_exports() {
    build default && python3 scripts/exports.py --check build/default/libgrx.so &&
        python3 scripts/exports.py --check build/default/libgrxpapier.so
}

gate_clang() { build clang; }

gate_tidy() {
    quiet cmake --preset clang || return 1
    sources 'x11/*.cpp' 'papier/*.cpp' 'host/standalone/*.cpp' |
        xargs -r -P "$jobs" -n 1 clang-tidy-14 --quiet -p build/clang 2>&1 |
        grep -vE '^[0-9]+ warnings? (and [0-9]+ errors? )?generated|^Suppressed |^Use -header-filter'
    return "${PIPESTATUS[1]}"
}

# Each program compares the library with plain Xlib or Motif in one process; its exit code says whether the ratios hold.
# A busy machine can spoil a run, not three.
gate_bench() {
    local program try code=0
    build default || return 1
    for program in build/default/bench/bench_*; do
        [ -x "$program" ] || continue
        for try in 1 2 3; do
            quiet scripts/with_x.sh "$program" --gate && continue 2
            echo "$program: try $try failed"
        done
        code=1
    done
    return $code
}

# Before a release; asked for by name.
gate_soak() { scripts/soak.sh 10; }

gate_sanitize() { build sanitize && run_tests sanitize; }

gates=("$@")
[ ${#gates[@]} -gt 0 ] || gates=(format layers sizes words shell exports clang tidy bench sanitize)
failed=()
for gate in "${gates[@]}"; do
    declare -F "gate_$gate" >/dev/null || { echo "no gate $gate"; exit 2; }
    # What went wrong so far is told before the last gate, so that ctest has the last word.
    if [ "$gate" = "${gates[-1]}" ] && [ ${#failed[@]} -gt 0 ]; then echo "Gates that failed: ${failed[*]}"; fi
    start=$SECONDS
    echo "== $gate"
    if "gate_$gate"; then
        [ "$gate" = sanitize ] || echo "   passed, $((SECONDS - start)) s"
    else
        failed+=("$gate")
        [ "$gate" = sanitize ] || echo "   FAILED, $((SECONDS - start)) s"
    fi
done
[ ${#failed[@]} -eq 0 ]
