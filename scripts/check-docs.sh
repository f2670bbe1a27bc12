#!/usr/bin/env bash
# Holds what the documents show against what happens. A marker in a comment stands alone on the line before a fenced
# block and says what the block is:
#
#     <!-- run -->              commands; each block of a document must succeed, in its order
#     <!-- console -->          commands, each a line behind "$ ", and what they print on both outputs; they must succeed
#     <!-- output: COMMAND -->  what COMMAND prints, on both outputs; it must succeed
#     <!-- file: PATH -->       the whole file at PATH
#
# Commands run in one scratch folder for each document, which holds a copy of samples/, with `orvale` in the path. Links
# to files of the project are followed as well. With --update the blocks of output and of files are written anew.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

update=no
if [[ ${1-} == --update ]]; then update=yes; shift; fi
if (($# != 1)); then
    echo "usage: scripts/check-docs.sh [--update] FOLDER-OF-THE-COMMAND" >&2
    exit 2
fi
PATH="$(cd -- "$1" && pwd):$PATH"
root=$PWD
scratch=$(mktemp -d)
export LC_ALL=C.UTF-8 ORVALE_REGISTRY=$scratch/none.reg
unset ORVALE_CODEPAGE
trap 'rm -rf "$scratch"' EXIT
checked=0
failed=0

fail() {  # PLACE REASON
    printf '%s: %s\n' "$1" "$2" >&2
    failed=$((failed + 1))
}

in_scratch() { (cd -- "$scratch/run" && bash -euo pipefail -c "$1" 2>&1); }

# Judges one block and leaves in `block` what belongs there.
check_block() {  # PLACE MARKER
    local place=$1 kind=${2%%:*} argument=${2#*: } wanted line script=''
    checked=$((checked + 1))
    case $kind in
        run)
            if ! wanted=$(in_scratch "$block"); then fail "$place" "the commands failed:"$'\n'"$wanted"; fi
            return ;;
        console)
            while IFS= read -r line; do
                if [[ $line == '$ '* ]]; then script+="echo ${line@Q}; ${line#'$ '}"$'\n'; fi
            done <<<"$block"
            if ! wanted=$(in_scratch "$script"); then fail "$place" "the commands failed:"$'\n'"$wanted"; return; fi ;;
        output)
            if ! wanted=$(in_scratch "$argument"); then fail "$place" "$argument failed:"$'\n'"$wanted"; return; fi ;;
        file)
            if ! wanted=$(cat -- "$root/$argument"); then fail "$place" "no file $argument"; return; fi ;;
    esac
    if [[ $wanted == "${block%$'\n'}" ]]; then return; fi
    if [[ $update == yes ]]; then
        block=$wanted$'\n'
    else
        fail "$place" "the block differs:"
        diff -u --label document --label "what happens" - <(printf '%s\n' "$wanted") <<<"${block%$'\n'}" >&2 || true
    fi
}

check_links() {  # DOCUMENT
    local target
    while IFS= read -r target; do
        if [[ $target == *:* || $target == '#'* ]]; then continue; fi
        if [[ ! -e $(dirname -- "$1")/${target%%#*} ]]; then fail "$1" "a link leads to $target, which isn't there"; fi
    done < <(grep -oP '\]\(\K[^)]+' -- "$1" | sort -u)
}

check_document() {  # DOCUMENT
    local document=$1 line marker='' block fence number=0 place
    rm -rf "$scratch/run"
    mkdir "$scratch/run"
    cp -r samples "$scratch/run/"
    {
        while IFS= read -r line <&4; do
            number=$((number + 1))
            printf '%s\n' "$line" >&3
            if [[ $line =~ ^'<!-- '(run|console|output: .+|file: .+)' -->'$ ]]; then
                marker=${BASH_REMATCH[1]}
                continue
            fi
            if [[ $line != '```'* ]]; then
                if [[ -n $marker ]]; then fail "$document:$number" "no block behind the marker"; fi
                marker=''
                continue
            fi
            block='' fence='' place=$document:$number
            while IFS= read -r line <&4; do
                number=$((number + 1))
                if [[ $line == '```' ]]; then fence=$line; break; fi
                block+=$line$'\n'
            done
            if [[ -z $fence ]]; then fail "$place" "the block has no end"; fi
            if [[ -n $marker ]]; then check_block "$place" "$marker"; fi
            marker=''
            printf '%s%s\n' "$block" "$fence" >&3
        done
    } 4<"$document" 3>"$scratch/document"
    if [[ $update == yes ]] && ! cmp -s "$scratch/document" "$document"; then cat "$scratch/document" >"$document"; fi
    check_links "$document"
}

mapfile -t documents < <(git ls-files '*.md')
if ((${#documents[@]} == 0)); then
    echo "git knows no document here." >&2
    exit 1
fi
for document in "${documents[@]}"; do
    check_document "$document"
done
if ((failed > 0)); then
    echo "$failed of the documents' blocks and links are wrong." >&2
    exit 1
fi
echo "$checked blocks in ${#documents[@]} documents are as shown."
