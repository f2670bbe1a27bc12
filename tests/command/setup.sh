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
