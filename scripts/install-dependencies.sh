#!/usr/bin/env bash
# Installs those of the packages needed that aren't there: what builds and tests Orvale and, with --checks, what the
# further checks of .ci/run take, with --packaging what scripts/package.sh takes, with --comparison what bench/compare.sh
# compares it with; with --browser those for the test of the page in a browser alone, with --coverage what
# scripts/coverage.sh counts with. Does nothing, and needs no rights, where all are there.
set -euo pipefail

usage="usage: scripts/install-dependencies.sh [--checks | --packaging | --comparison | --browser | --coverage]"
packages=(
    g++ cmake ninja-build pkg-config       # the build; pkg-config for the test of the installed package
    libxml2-dev                            # the XML suites
    libcli11-dev nlohmann-json3-dev libmd-dev  # the command
    libical-dev libgmime-3.0-dev           # its calendars and mailboxes
    libgtest-dev libgmock-dev tzdata       # the tests, some of which work in named time zones
    python3-cram                           # those of them that are transcripts of a terminal
    python3-icalendar python3-vobject      # other programs that the tests hold calendars against
    libbenchmark-dev                       # the benchmarks
)
case "$#:${1-}" in
    0:) ;;
    1:--checks) packages+=(clang libclang-rt-14-dev clang-format clang-tidy cppcheck) ;;
    1:--packaging) packages+=(dpkg-dev lintian) ;;
    1:--comparison)
        packages+=(libpugixml-dev libcsv-dev jq abook gammu php-cli php-sabre-vobject)
        packages+=(python3 python3-vobject gnuplot-nox time) ;;
    1:--browser) packages=(chromium chromium-driver python3) ;;
    1:--coverage) packages=(gcovr) ;;
    1:-h | 1:--help) echo "$usage"; exit 0 ;;
    *) echo "$usage" >&2; exit 2 ;;
esac

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "No apt-get on this system. What is needed, by the names of Debian's packages: ${packages[*]}" >&2
    exit 0
fi

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $status == installed* ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then exit 0; fi

as_root=(env DEBIAN_FRONTEND=noninteractive)
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo "${as_root[@]}")
fi
echo "Installing ${missing[*]}"
apt=("${as_root[@]}" apt-get -qq -o DPkg::Lock::Timeout=120 -o Dpkg::Use-Pty=0)
"${apt[@]}" update || echo "The package lists could not be renewed; going on with those that are here." >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >"$log" 2>&1; then
    cat "$log" >&2
    echo "The packages could not be installed." >&2
    exit 1
fi
