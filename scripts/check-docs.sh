#!/usr/bin/env bash
# Holds what the documents show against what happens. A fenced block says what it is by a marker, a comment that stands
# alone on the line before it; one without a marker is a fault.
#
#     <!-- run -->              commands; each block of a document must succeed, in its order
#     <!-- console -->          commands, each a line behind "$ ", and what they print on both outputs; all must succeed
#     <!-- output: COMMAND -->  what COMMAND prints, on both outputs; it must succeed
#     <!-- through: COMMAND --> what COMMAND prints when it is given this block as its input
#     <!-- file: PATH -->       the whole file at PATH
#     <!-- not run: REASON -->  commands that can't be run here; what they name must exist
#
# Commands run in one scratch folder for each document, which holds a copy of samples/, with `orvale` in the path; a
# page that is opened goes to no browser. With --update the blocks of output and of files are written anew.
#
# What commands name that aren't run, those within a text too, has to exist: see check-commands.sh. Indented blocks are
# notation and hold no commands. Links are followed to files of the project and to their headings.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

update=no
if [[ ${1-} == --update ]]; then update=yes; shift; fi
if (($# != 1)); then
    echo "usage: scripts/check-docs.sh [--update] FOLDER-OF-THE-COMMAND" >&2
    exit 2
fi
root=$PWD
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/bin" "$scratch/tmp"
ln -s /bin/true "$scratch/bin/xdg-open"
PATH="$(cd -- "$1" && pwd):$scratch/bin:$PATH"
export LC_ALL=C.UTF-8 TMPDIR=$scratch/tmp ORVALE_REGISTRY=$scratch/none.reg
unset ORVALE_CODEPAGE
checked=0
failed=0

fail() {  # PLACE REASON
    printf '%s: %s\n' "$1" "$2" >&2
    failed=$((failed + 1))
}

source scripts/check-commands.sh

in_scratch() { (cd -- "$scratch/run" && bash -euo pipefail -c "$1" 2>&1); }

# Judges one block and leaves in `block` what belongs there.
check_block() {  # PLACE MARKER
    local place=$1 kind=${2%%:*} argument=${2#*: } wanted line script=''
    if [[ $kind != 'not run' ]]; then checked=$((checked + 1)); fi
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
        through)
            if ! wanted=$(in_scratch "$argument" <<<"${block%$'\n'}"); then
                fail "$place" "$argument failed:"$'\n'"$wanted"
                return
            fi ;;
        not\ run)
            for line in $argument; do  # the reason may say where they are run instead
                if [[ $line == */* && ! -e $line ]]; then fail "$place" "no $line"; fi
            done
            while IFS= read -r line; do check_command "$place" "$line"; done <<<"${block//\\$'\n'/}"
            return ;;
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

# The names that the headings of a document are linked by.
headings() { sed -n 's/^##* //p' -- "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'; }

check_links() {  # DOCUMENT
    local target file
    while IFS= read -r target; do
        if [[ $target == *:* ]]; then continue; fi
        file=$(dirname -- "$1")/${target%%#*}
        if [[ $target == '#'* ]]; then file=$1; fi
        if [[ ! -e $file ]]; then
            fail "$1" "a link leads to $target, which isn't there"
        elif [[ $target == *'#'* ]] && ! grep -qxF -- "${target#*#}" <<<"$(headings "$file")"; then
            fail "$1" "a link leads to $target, but there is no such heading"
        fi
    done < <(grep -oP '\]\(\K[^)]+' -- "$1" | sort -u)
}

# Every second piece between backquotes is code.
check_mentions() {  # DOCUMENT TEXT
    local pieces words i
    IFS='`' read -rd '' -a pieces <<<"$2" || true
    for ((i = 1; i < ${#pieces[@]}; i += 2)); do
        read -rd '' -a words <<<"${pieces[i]}" || true
        check_mention "$1" "${words[*]}"
    done
}

check_document() {  # DOCUMENT
    local document=$1 line marker='' block fence number=0 place prose=''
    rm -rf "$scratch/run"
    mkdir "$scratch/run"
    cp -r samples "$scratch/run/"
    {
        while IFS= read -r line <&4; do
            number=$((number + 1))
            printf '%s\n' "$line" >&3
            if [[ $line =~ ^'<!-- '((run|console)|(output|through|file|not run)': '.+)' -->'$ ]]; then
                marker=${BASH_REMATCH[1]}
                continue
            fi
            if [[ $line != '```'* ]]; then
                if [[ -n $marker ]]; then fail "$document:$number" "no block behind the marker"; fi
                marker=''
                if [[ $line =~ ^'    '('$ ')?(sudo |orvale |cmake |ctest |c\+\+ |scripts/|bench/|build/) ]]; then
                    fail "$document:$number" "a command in an indented block, which nothing runs"
                fi
                prose+=$line$'\n'
                continue
            fi
            block='' fence='' place=$document:$number
            while IFS= read -r line <&4; do
                number=$((number + 1))
                if [[ $line == '```' ]]; then fence=$line; break; fi
                block+=$line$'\n'
            done
            if [[ -z $fence ]]; then fail "$place" "the block has no end"; fi
            if [[ -n $marker ]]; then check_block "$place" "$marker"; else fail "$place" "the block has no marker"; fi
            marker=''
            printf '%s%s\n' "$block" "$fence" >&3
        done
    } 4<"$document" 3>"$scratch/document"
    if [[ $update == yes ]] && ! cmp -s "$scratch/document" "$document"; then cat "$scratch/document" >"$document"; fi
    check_links "$document"
    check_mentions "$document" "$prose"
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
    echo "$failed of the documents' blocks, commands and links are wrong." >&2
    exit 1
fi
echo "$checked blocks in ${#documents[@]} documents are as shown; what $mentioned commands beside them name is there."
