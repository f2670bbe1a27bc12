# What the transcripts share, each of which begins with `. "$TESTDIR/setup.sh"`. Lines take the escapes of printf's %b,
# so that \0374 is a byte.
export LC_ALL=C.UTF-8 TZ=UTC ORVALE_REGISTRY=$PWD/registry
unset ORVALE_CODEPAGE
samples=$TESTDIR/../../samples

# The ids of all types of a contact's fields that have a name.
types=$(sed -nE 's/.* X\(CF_\w+, ([0-9]+), .*/\1/p' "$TESTDIR/../../src/records/ContactFieldTypes.h")

# A JSON document of records: document KIND RECORD...
document() {
    local kind=$1 IFS=,
    shift
    printf '{"orvale": 1, "kind": "%s", "records": [%s]}\n' "$kind" "$*"
}

# Fields of a contact for such a document: contact TYPE=DATA...
contact() {
    local fields=() each
    for each; do fields+=("{\"type\": ${each%%=*}, \"data\": \"${each#*=}\"}"); done
    local IFS=,
    printf '{"fields": [%s]}' "${fields[*]}"
}

# Lines that end in CR LF.
lines() { printf '%b\r\n' "$@"; }

# A card of a version: card VERSION LINE...
card() { lines BEGIN:VCARD "VERSION:$1" "${@:2}" END:VCARD; }

# What the cards of standard input say: a line for each field, its groups under it, a blank line between contacts; then
# what has no place. The contacts themselves are in told.json.
told() {
    orvale convert --force --partial --from vcf - told.json 2>losses
    sed -nE '/^ *"storage"/s/.*//p
        /^ *"(type|id)": /{s/.*: |,$//g; h}
        /^ *"data": /{s///; s/,$//; H; g; s/\n/ /; p}
        /^ *"name": /{s///; H; g; s/\n/ /; s/^/  group /; p}' told.json | sed 1d
    sed 's/^orvale: [^:]*: //; s/first in standard input, //' losses
}
