#!/usr/bin/env bash
# Builds the Debian packages orvale and liborvale-dev into build/release, and has lintian judge them. Installs what is
# missing.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

scripts/install-dependencies.sh --packaging
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
# The dates in manual and changelog are those of the last change, so that the same sources make the same packages.
if [[ -z ${SOURCE_DATE_EPOCH-} ]] && date=$(git log -1 --format=%ct 2>/dev/null); then export SOURCE_DATE_EPOCH=$date; fi

echo "Building, which takes some minutes the first time"
cmake --preset release --log-level=WARNING >/dev/null
cmake --build --preset release --target Orvale orvale orvale_host orvale_pages -- --quiet
rm -f build/release/*.deb
cpack --preset release >/dev/null
lintian --fail-on error,warning build/release/*.deb
ls build/release/*.deb
