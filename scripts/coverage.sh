#!/usr/bin/env bash
# Counts the lines and branches of the sources that the whole test suite reaches, the fault tests, the hostile files and
# the inputs of the fuzz targets among it, and tells what of each file was not reached. Installs what is missing. Takes
# some thirteen minutes of processor time.
#
#     scripts/coverage.sh [--report]
#
# With --report it counts nothing and tells of the last run.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

if [[ ${1-} != --report ]]; then
    scripts/install-dependencies.sh
    scripts/install-dependencies.sh --coverage
    if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
    rm -rf build/coverage  # with the counters of an earlier run, and objects of sources that are no more
    cmake --preset coverage --log-level=WARNING >/dev/null
    cmake --build --preset coverage
    find build/coverage -name '*.gcda' -delete  # what programs of the build counted
    ctest --preset coverage --no-tests=error --parallel "$(nproc)"
fi
# Ways that the compiler makes for exceptions, and those in lines without code of ours, aren't branches of ours.
report=build/coverage/report
mkdir -p "$report"
gcovr --root . --filter src/ --gcov-executable "$PWD/scripts/gcov-without-exceptions.py" -j "$(nproc)" \
    --exclude-throw-branches --exclude-unreachable-branches --object-directory build/coverage \
    --html-details "$report/index.html" --json "$report/coverage.json" --print-summary build/coverage/src
echo "place by place: $report/index.html"
