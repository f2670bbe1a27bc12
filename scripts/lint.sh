#!/usr/bin/env bash
# Holds the sources against clang-format, clang-tidy and cppcheck; any finding fails. With files as arguments, clang-tidy
# looks at those alone.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

scripts/install-dependencies.sh --checks

git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror

cppcheck -j"$(nproc)" --enable=warning,performance,portability,style --std=c++20 --quiet --error-exitcode=1 -I src \
    --suppressions-list=.cppcheck-suppressions src

# clang-tidy asks the build how each source is compiled; a header is looked at with the sources that take it in.
cmake --preset clang --log-level=WARNING >/dev/null
if (($# == 0)); then mapfile -t sources < <(git ls-files 'src/*.cpp'); else sources=("$@"); fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! printf '%s\0' "${sources[@]}" | xargs -0 -P"$(nproc)" -n1 clang-tidy -p build/clang --quiet >"$log" 2>&1; then
    grep -v 'warnings generated\|^Suppressed\|^Use -header-filter' "$log" >&2
    exit 1
fi
