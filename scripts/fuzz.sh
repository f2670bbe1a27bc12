#!/usr/bin/env bash
# Fuzzes: builds the targets with clang's engine and runs them, as many at a time as there are processors. A corpus grows
# in build/fuzz-corpus/TARGET from one run to the next. Stops at a finding and says where its input is.
#
#     scripts/fuzz.sh [--seconds N] [TARGET...]    N seconds for each target (60), all targets of fuzz/targets.txt or these
#
# ORVALE_CODEPAGE in the environment is the code page of the work, UTF-8 without it.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

usage="usage: scripts/fuzz.sh [--seconds N] [TARGET...]"
seconds=60
while (($# > 0)); do
    case $1 in
        --seconds) seconds=${2-}; shift 2 || { echo "$usage" >&2; exit 2; } ;;
        -h | --help) echo "$usage"; exit 0 ;;
        -*) echo "$usage" >&2; exit 2 ;;
        *) break ;;
    esac
done
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then echo "$usage" >&2; exit 2; fi

declare -A row
names=()
while read -r name rest; do
    if [[ -z $name || $name == '#'* ]]; then continue; fi
    row[$name]=$rest
    names+=("$name")
done <fuzz/targets.txt
if (($# > 0)); then names=("$@"); fi
for name in "${names[@]}"; do
    if [[ ! -v row[$name] ]]; then echo "fuzz/targets.txt has no target '$name'" >&2; exit 2; fi
done

scripts/install-dependencies.sh --checks
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
cmake --preset fuzz --log-level=WARNING >/dev/null
cmake --build --preset fuzz --target "${names[@]/#/fuzz_}" -- --quiet

# Scratch files and logs; in memory where the system has room for files there.
base=${TMPDIR:-/tmp}
if [[ -d /dev/shm && -w /dev/shm ]]; then base=/dev/shm; fi
scratch=$(mktemp -d "$base/orvale-fuzz.XXXXXX")
running=()
finish() {
    if ((${#running[@]} > 0)); then kill "${running[@]}" 2>/dev/null || true; wait || true; fi
    rm -rf "$scratch"
}
trap finish EXIT

# Freed memory is kept from use for a while, to see uses of it; less of it than by default is worth half the time.
export ASAN_OPTIONS="quarantine_size_mb=4${ASAN_OPTIONS:+:$ASAN_OPTIONS}"

run_target() {  # NAME
    local name=$1 dictionary longest pattern status=0 options=()
    local corpus=build/fuzz-corpus/$name
    read -r dictionary longest pattern <<<"${row[$name]}"
    mkdir -p "$corpus" build/fuzz-findings "$scratch/$name"
    if [[ $dictionary != - ]]; then options+=("-dict=fuzz/dictionaries/$dictionary.dict"); fi
    # Words and wildcards of the table are meant to be split and expanded.
    local file folder
    for file in $pattern; do cp "$file" "$corpus/${file//\//-}"; done
    local folders=("$corpus")
    for folder in "fuzz/seeds/$name" "fuzz/findings/$name"; do
        if [[ -d $folder ]]; then folders+=("$folder"); fi
    done
    TMPDIR=$scratch/$name build/fuzz/fuzz/fuzz_"$name" "${folders[@]}" "${options[@]}" \
        -max_total_time="$seconds" -max_len="$longest" -timeout=10 -rss_limit_mb=1024 -malloc_limit_mb=256 -entropic=0 \
        -print_final_stats=1 -artifact_prefix="build/fuzz-findings/$name-" >"$scratch/$name.log" 2>&1 || status=$?
    times >"$scratch/$name.times"  # its second line is that of the processes under this one
    return "$status"
}

# One line of a target's figures, from the engine's own. The rate is that of a processor which does nothing else.
tell() {  # NAME
    local log=$scratch/$1.log executions edges features
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    read -r edges features < <(sed -n 's/.* cov: \([0-9]*\) ft: \([0-9]*\) .*/\1 \2/p' "$log" | tail -n 1)
    tr 'ms' '  ' <"$scratch/$1.times" | awk -v name="$1" -v count="${executions:-0}" -v edges="${edges:-0}" -v features="${features:-0}" \
        'NR == 2 { printf "%-18s %10d executions %6d a processor second %6d edges %6d features\n",
           name, count, count / ($1 * 60 + $2 + $3 * 60 + $4), edges, features }'
}

declare -A target_of
failed=''
wait_for_one() {
    local process status=0 left=() other
    wait -n -p process "${running[@]}" || status=$?
    for other in "${running[@]}"; do
        if [[ $other != "$process" ]]; then left+=("$other"); fi
    done
    running=("${left[@]}")
    tell "${target_of[$process]}"
    if ((status != 0)); then failed=${target_of[$process]}; fi
}

for name in "${names[@]}"; do
    if ((${#running[@]} >= $(nproc))); then wait_for_one; fi
    if [[ -n $failed ]]; then break; fi
    run_target "$name" &
    running+=($!)
    target_of[$!]=$name
done
while [[ -z $failed ]] && ((${#running[@]} > 0)); do wait_for_one; done

if [[ -n $failed ]]; then
    grep -E "^What has to hold|ERROR: |runtime error: |SUMMARY: |Test unit written" "$scratch/$failed.log" >&2 || tail -n 20 "$scratch/$failed.log" >&2
    echo "fuzz_$failed found something. Its input goes to fuzz/findings/$failed/ with the fix." >&2
    exit 1
fi
