#!/usr/bin/env bash
# Shows Orvale at work: builds the command and takes a phone's vCard file into the native contact file and back.
# Installs what is missing; writes to a temporary folder alone.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

scripts/install-dependencies.sh
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
echo "Building, which takes a minute or two the first time"
cmake --preset release --log-level=WARNING >/dev/null
cmake --build --preset release --target Orvale orvale -- --quiet

PATH="$PWD/build/release/src:$PATH"
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
ln -s "$PWD/samples" "$out/samples"
cd "$out"

# Tells what it shows, gives the command as it would be typed, and runs it.
show() {
    printf '\n# %s\n$ %s\n' "$1" "$2"
    bash -euo pipefail -c "$2"
}

show "A vCard file from a phone, into the native contact file" "orvale convert samples/contacts.vcf contacts.qzs"
show "What that file is" "orvale info contacts.qzs"
show "The contacts in it, the first one here" "orvale show contacts.qzs | sed -n 1,29p"
show "The same as a JSON document, its first lines" "orvale show --json contacts.qzs | sed -n 1,24p"
show "And back to a vCard, with what a vCard can't hold as it was" "orvale convert contacts.qzs back.vcf"
show "Its first card" "sed '/^END/q' back.vcf"
show "On into the suite document, which explains itself" "orvale convert contacts.qzs phonebook.xml && sed -n 1,24p phonebook.xml"
show "A calendar" "orvale show samples/calendar.cal"
