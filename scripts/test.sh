#!/usr/bin/env bash
# Runs the whole test suite, as a debug build and again under the address and undefined-behaviour sanitizers. Installs
# what is missing.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

scripts/install-dependencies.sh
scripts/install-dependencies.sh --browser || echo "No browser: the test of the page in one is skipped." >&2
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi

for preset in debug asan; do
    printf '\n== Tests, %s build\n' "$preset"
    cmake --preset "$preset" --log-level=WARNING >/dev/null
    cmake --build --preset "$preset"
    ctest --preset "$preset" --no-tests=error --parallel "$(nproc)"
done
