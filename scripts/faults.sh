#!/usr/bin/env bash
# Walks every fault of the fault tests, not only those that the test suite takes time for: each system call and each
# allocation of each road fails, is interrupted, is cut short, or is the last one. Takes some 170 000 runs.
#
#     scripts/faults.sh [--preset PRESET] [ROAD [TEST]]
#
# ROAD is a part of a road's name, such as "convert to qzs"; TEST is a part of a test's name, such as "Killed".
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

preset=debug
if [[ ${1-} == --preset ]]; then preset=$2; shift 2; fi
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
cmake --preset "$preset" --log-level=WARNING >/dev/null
cmake --build --preset "$preset" --target orvale_fault_tests
ORVALE_FAULTS=${1-} "build/$preset/tests/orvale_fault_tests" --gtest_filter="*${2-}*"
