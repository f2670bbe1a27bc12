#!/usr/bin/env bash
# Holds what a reading costs against the size of its input, counted in the processor's instructions and so the same
# everywhere: an input of ten times the size may cost at most eleven times as much, beyond what an empty one does. The
# inputs are the cases of fuzz/growth.cases; each is read, written and read again. Takes valgrind.
#
#     scripts/growth.sh [CASE...]
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

if ! command -v valgrind >/dev/null; then echo "scripts/growth.sh needs valgrind" >&2; exit 1; fi
scripts/install-dependencies.sh
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
cmake --preset debug --log-level=WARNING >/dev/null
cmake --build --preset debug --target orvale_fuzz_growth -- --quiet
program=build/debug/fuzz/orvale_fuzz_growth

if (($# == 0)); then mapfile -t cases < <("$program"); else cases=("$@"); fi
small=4000
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cost() {  # CASE SIZE
    TMPDIR=$scratch valgrind --tool=cachegrind --cache-sim=no --cachegrind-out-file=/dev/null "$program" "$1" "$2" 2>&1 |
        sed -n 's/,//g; s/^==.*I *refs: *//p'
}

# One line of a case; fails where it grows too fast. The line may be bent at its start, as by a buffer that is filled once
# or many times: what is above the limit is looked at again at ten times the size, where a true curve is only steeper.
judge() {  # CASE [SIZE]
    local size=${2:-$small} none one ten times
    none=$(cost "$1" 0) one=$(cost "$1" "$size") ten=$(cost "$1" $((10 * size)))
    times=$((100 * (ten - none) / (one - none)))
    if ((times > 1100 && size == small)); then
        judge "$1" $((10 * size))
        return
    fi
    printf '%-26s %14s instructions for %s bytes, times %d.%02d for ten times as many\n' \
        "$1" $((one - none)) "$size" $((times / 100)) $((times % 100))
    ((times <= 1100))
}
export program small scratch
export -f cost judge

if ! printf '%s\0' "${cases[@]}" | xargs -0 -P "$(nproc)" -I{} bash -euo pipefail -c 'judge {}'; then
    echo "Something grows faster than its input." >&2
    exit 1
fi
echo "${#cases[@]} cases grow in a straight line."
