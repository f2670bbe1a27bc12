# shellcheck shell=bash
# The part of check-docs.sh that judges commands without running them: what they name has to exist, which is the verbs,
# options and formats of `orvale`, scripts with their options, programs and targets of the build, presets, fuzz targets,
# names of tests, and variables of the environment. Takes `fail PLACE REASON` and `orvale` in the path, and counts the
# commands in `mentioned`.

mentioned=0
build_files=(CMakeLists.txt src tests bench fuzz cmake)
options=$(  # where an option stands that is named without its command
    for verb in $(orvale help | sed -n '/^Verbs/,/^$/s/^  \([a-z][a-z]*\) .*/\1/p'); do orvale help "$verb"; done
    cat scripts/*.sh tests/page/page_test.py
)

in_build() { grep -rqE --include=CMakeLists.txt --include='*.cmake' -e "$1" "${build_files[@]}"; }
is_preset() { grep -qF "{ \"name\": \"$1\"" CMakePresets.json; }  # one that builds, so not the hidden ones
is_fuzz_target() { grep -q "^$1 " fuzz/targets.txt; }
is_format() { [[ $1 == [[:upper:]]* ]] || grep -q "^$1 " <<<"$(orvale formats)"; }  # capitals stand for any

# Each of the words of a filter, such as 'fuzz|Faults' or *Killed*, is a part of some test's name.
are_tests() {
    local word
    for word in $(tr -c 'A-Za-z_' ' ' <<<"$1"); do
        grep -rqE --include=CMakeLists.txt --include='*.cpp' "(TEST(_F|_P)?\(|add_test\().*$word" tests fuzz || return 1
    done
}

check_orvale() {  # PLACE WORDS...
    local place=$1 verb='' help word before=''
    shift
    if [[ ${1-} == VERB ]]; then verb=info; shift; fi  # any of them
    if [[ ${1-} == [[:lower:]]* ]]; then verb=$1; shift; fi
    if [[ $verb == help && ${1-} == [[:lower:]]* ]]; then verb=$1; shift; fi
    if ! help=$(orvale help ${verb:+"$verb"} 2>&1); then fail "$place" "orvale has no verb $verb"; return; fi
    for word; do
        if [[ $word == -?* ]] && ! grep -qE -- "[ ,]${word%%=*}([ =,]|$)" <<<"$help"; then
            fail "$place" "orvale $verb has no option $word"
        fi
        if [[ $before == --@(from|to|format) ]] && ! is_format "$word"; then fail "$place" "no format $word"; fi
        before=$word
    done
}

# A script of the project with its options, or a program of the build.
check_program() {  # PLACE PROGRAM WORDS...
    local place=$1 program=$2 word parts
    shift 2
    if [[ $program == build/* ]]; then
        IFS=/ read -ra parts <<<"$program"
        is_preset "${parts[1]}" || fail "$place" "no preset ${parts[1]}"
        grep -qs "add_executable(${parts[3]-}\b" "${parts[2]-}/CMakeLists.txt" ||
            fail "$place" "the build has no $program"
    elif [[ ! -x $program ]]; then
        fail "$place" "no script $program"
        return
    else
        for word; do
            if [[ $word == --* ]] && ! grep -qE -- "(^|[^-a-z])$word([^-a-z]|$)" "$program"; then
                fail "$place" "$program has no option $word"
            fi
        done
    fi
    for word; do
        case $program:$word in
            */fuzz.sh:[[:lower:]]* | *_fuzz_replay:[[:lower:]]*)
                is_fuzz_target "$word" || fail "$place" "no fuzz target $word" ;;
            */faults.sh:[[:upper:]]*) are_tests "$word" || fail "$place" "no test is named $word" ;;
        esac
    done
}

# What stands behind an option names the same thing for every program.
check_words() {  # PLACE WORDS...
    local place=$1 word before=''
    shift
    for word; do
        case $before in
            --preset) is_preset "$word" || fail "$place" "no preset $word" ;;
            --target) in_build "add_(executable|library|custom_target)\\($word\\b" || fail "$place" "no target $word" ;;
            -R | -E) are_tests "$word" || fail "$place" "not all of these are names of tests: $word" ;;
        esac
        case $word in
            --gtest_filter=*) are_tests "${word#*=}" || fail "$place" "not all of these are names of tests: $word" ;;
            -DORVALE_*=O*)
                in_build "(option|set)\\($(sed 's/^-D//; s/=.*//' <<<"$word") " ||
                    fail "$place" "the build has no option $word" ;;
        esac
        before=$word
    done
}

check_variable() {  # PLACE NAME
    grep -rqF -e "\"$2\"" -e "\${$2" src tests fuzz scripts || fail "$1" "nothing reads the variable $2"
}

check_command() {  # PLACE COMMAND
    local place=$1 line=${2%%  #*} part words
    mentioned=$((mentioned + 1))
    while IFS= read -r part; do
        read -ra words <<<"$(tr -d "\"'()" <<<"$part")"
        while [[ ${words[0]-} == sudo || ${words[0]-} == [A-Z]*=* ]]; do
            if [[ ${words[0]} == ORVALE_*=* ]]; then check_variable "$place" "${words[0]%%=*}"; fi
            words=("${words[@]:1}")
        done
        case ${words[0]-} in
            orvale) check_orvale "$place" "${words[@]:1}" ;;
            scripts/* | bench/* | tests/* | .ci/* | build/*) check_program "$place" "${words[@]}" ;;
            cmake | ctest | cram3 | c++ | apt | gcovr | man | unzip | iconv | '') ;;
            *) fail "$place" "nobody knows the command ${words[0]}" ;;
        esac
        check_words "$place" "${words[@]:1}"
    done < <(sed 's/ && \| | /\n/g' <<<"$line")
}

# A piece of code within a text, if it is a command, an option, a variable or a path.
check_mention() {  # PLACE TEXT
    local place=$1 text=$2 words
    case $text in
        *\<* | *…* | *'*'*) ;;
        'orvale '* | *'| orvale '* | 'man '* | .ci/* | scripts/*.sh* | *' scripts/'*.sh* | bench/*.sh* | tests/*.py* | \
            build/*/*' '*) check_command "$place" "$text" ;;
        'info -'* | 'show -'* | 'view -'* | 'diff -'* | 'convert -'*) check_command "$place" "orvale $text" ;;
        -D*=O*) read -ra words <<<"$text"; check_words "$place" "${words[@]}" ;;
        --[[:lower:]]*)
            mentioned=$((mentioned + 1))
            grep -qE -e "(^|[^-a-z])${text%%[ =]*}([^-a-z]|$)" <<<"$options" ||
                fail "$place" "nothing has the option $text" ;;
        ORVALE_[A-Z]*=* | \$ORVALE_*) check_variable "$place" "$(grep -o 'ORVALE_[A-Z_]*' <<<"$text")" ;;
        src/* | docs/* | scripts/* | bench/* | tests/* | fuzz/* | samples/*)
            if [[ ! -e $text ]]; then fail "$place" "no $text"; fi ;;
    esac
}
