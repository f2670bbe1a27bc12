#!/usr/bin/env bash
# Measures Orvale and what a user would take instead on the same data, and the growth of every streaming road up to a
# million records; writes the tables and the plots of docs/performance.md. Installs what only the comparison needs.
#
#     bench/compare.sh [--before COMMAND] [--quick]
#
# --before names the command of an earlier build, whose times stand beside today's. --quick leaves out the million and
# the repetitions, and writes no document. Takes some 15 minutes and 6 GB of temporary space ($TMPDIR).
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

before='' quick=''
while (($# > 0)); do
    case $1 in
        --before) before=$(realpath -- "${2:?a command is missing}"); shift 2 ;;
        --quick) quick=--quick; shift ;;
        *) sed -n '2,9s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
    esac
done

scripts/install-dependencies.sh --comparison
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
build=build/compare  # the release preset with the programs that Orvale is compared with
cmake --preset release -B "$build" -DORVALE_TESTS=OFF -DORVALE_BENCH_PEERS=ON --log-level=WARNING >/dev/null
cmake --build "$build" --target Orvale orvale orvale_bench orvale_bench_data orvale_bench_peers -- --quiet

data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
export LC_ALL=C.UTF-8 ORVALE_REGISTRY=$data/none.reg
unset ORVALE_CODEPAGE
/usr/bin/python3 bench/compare.py --build "$build" --data "$data" ${before:+--before "$before"} $quick
