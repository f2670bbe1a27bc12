#!/usr/bin/env bash
# Shows Orvale at work: builds the command and takes a phone's vCard file into the native contact file, and on to the
# phones of today. Installs what is missing; beside build/ it writes to a temporary folder alone.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

scripts/install-dependencies.sh
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=ccache; fi
echo "Building, which takes some minutes the first time"
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
show "A vCard for the phones of today; what stands elsewhere in it is told" "orvale convert --vcard-version 3.0 contacts.qzs phone.vcf"
show "Its first card" "sed '/^END/q' phone.vcf"
show "A format that holds less: what is lost is told" "orvale convert samples/contacts.json old-phone.vcf"
show "On into the suite document, which explains itself" "orvale convert contacts.qzs phonebook.xml && sed -n 1,24p phonebook.xml"
show "A calendar" "orvale show samples/calendar.cal"
show "Messages as a table for spreadsheets" "orvale show --csv samples/messages.sms | sed -n 1,4p"
show "What two files differ in" "orvale diff samples/calendar.json samples/calendar.cal"
show "A page for the browser" "orvale view --output phone.html contacts.qzs samples/calendar.cal samples/messages.sms samples/mails.eml"

printf '\nThe command is build/release/src/orvale; its help and the README have the rest.\n'
