#include "command/line/Completions.h"

#include <functional>

#include "command/formats/FormatTable.h"
#include "command/line/Options.h"

namespace orvale {
namespace {

template <class Rows, class Word>
std::string Join(const Rows& rows, std::string_view between, Word word) {
    std::string list;
    for (const auto& row : rows) {
        const std::string each(word(row));
        if (!each.empty()) list += (list.empty() ? "" : std::string(between)) + each;
    }
    return list;
}

// The words that a place takes, with a blank between them; empty where they can't be told.
std::string WordsOf(const Place& place) {
    switch (place.values) {
        case Values::kInputFormats:
            return Join(FormatTable(), " ", [](const FormatRow& row) { return row.Reads() ? row.name : ""; });
        case Values::kOutputFormats:
            return Join(FormatTable(), " ", [](const FormatRow& row) { return row.writes ? row.name : ""; });
        case Values::kVerbs:
            return Join(AllVerbs(), " ", [](const VerbRow& row) { return row.word.starts_with('-') ? "" : row.word; });
        case Values::kChoices:
            return std::string(place.choices);
        case Values::kNone:
        case Values::kFiles:
        case Values::kOther:
            break;
    }
    return "";
}

std::string ReplaceAll(std::string_view text, std::string_view what, const std::function<std::string(char)>& by) {
    std::string out;
    for (const char c : text)
        out += what.find(c) == std::string_view::npos ? std::string(1, c) : by(c);
    return out;
}

// Between single quotes, where nothing is special but they.
std::string ShellText(std::string_view text) {
    return ReplaceAll(text, "'", [](char) { return "'\\''"; });
}

std::string FishText(std::string_view text) {
    return ReplaceAll(text, "\\'", [](char c) { return std::string{'\\', c}; });
}

// A text in the description of an argument, between single quotes.
std::string ZshText(std::string_view text) {
    return ShellText(ReplaceAll(text, "[]:\\", [](char c) { return std::string{'\\', c}; }));
}

std::string NamesOf(const OptionRow& row, std::string_view between) {
    return (row.letter.empty() ? "" : std::string(row.letter) + std::string(between)) + std::string(row.name);
}

// The function of bash that offers what stands in a place.
std::string BashOffer(const Place& place) {
    if (place.values == Values::kFiles) return "_orvale_files";
    const std::string words = WordsOf(place);
    return words.empty() ? ":" : "_orvale_words '" + words + "'";
}

std::string BashVerb(const VerbRow& verb) {
    const std::vector<const OptionRow*> options = OptionsOf(verb.verb);
    std::string values;
    for (const OptionRow* row : options)
        if (row->value.values != Values::kNone)
            values += "                " + NamesOf(*row, " | ") + ") " + BashOffer(row->value) + "; return ;;\n";
    if (!values.empty()) values = "            case $prev in\n" + values + "            esac\n";
    return "        " + std::string(verb.word) + ")\n" + values +
           "            if [[ $cur == -* && -z $only_files ]]; then\n" + "                _orvale_words '" +
           Join(options, " ", [](const OptionRow* row) { return row->name; }) +
           "'\n            else\n                " + BashOffer(verb.files) + "\n            fi ;;\n";
}

std::string ZshPlace(const Place& place) {
    std::string words = WordsOf(place);
    if (place.values == Values::kFiles)
        words = "_files";
    else
        words = words.empty() ? " " : "(" + words + ")";
    return ":" + ZshText(place.word) + ":" + words;
}

std::string ZshOption(const OptionRow& row) {
    const bool flag = row.value.values == Values::kNone;
    const std::string about = (flag ? "[" : "=[") + ZshText(row.help) + "]" + (flag ? "" : ZshPlace(row.value)) + "'";
    if (row.letter.empty()) return (row.repeats ? "'*" : "'") + std::string(row.name) + about;
    return "'(" + NamesOf(row, " ") + ")'{" + NamesOf(row, ",") + "}'" + about;
}

std::string ZshVerb(const VerbRow& verb) {
    const std::string next = " \\\n                ";
    std::string text = "        " + std::string(verb.word) + ")\n            _arguments -S";
    for (const OptionRow* row : OptionsOf(verb.verb))
        text += next + ZshOption(*row);
    const bool many = verb.most > 1;
    if (verb.files.values != Values::kNone) text += next + "'" + (many ? "*" : "1") + ZshPlace(verb.files) + "'";
    return text + " ;;\n";
}

std::string FishPlace(const Place& place) {
    if (place.values == Values::kFiles) return " -r -F";
    const std::string words = WordsOf(place);
    return words.empty() ? " -x" : " -x -a '" + words + "'";
}

std::string FishOption(const OptionRow& row) {
    const std::string verbs = Join(AllVerbs(), " ", [&](const VerbRow& verb) {
        for (const OptionRow* each : OptionsOf(verb.verb))
            if (each == &row) return verb.word;
        return std::string_view();
    });
    std::string line = "complete -c orvale -n '__orvale_verb " + verbs + "' -l " + std::string(row.name.substr(2));
    if (!row.letter.empty()) line += " -s " + std::string(row.letter.substr(1));
    if (row.value.values != Values::kNone) line += FishPlace(row.value);
    return line + " -d '" + FishText(row.help) + "'\n";
}

}  // namespace

std::string BashCompletion() {
    std::string text = R"(# Completes the lines of orvale in bash.
_orvale_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

_orvale_files() {
    compopt -o bashdefault -o default 2>/dev/null
}

_orvale() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} only_files='' i
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _orvale_words ')" +
                       WordsOf({"", Values::kVerbs}) + R"('
        return
    fi
    # "=" is a word of its own here.
    if [[ $cur == = ]]; then
        cur=''
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD-2]}
    fi
    for ((i = 2; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} == -- ]]; then only_files=yes prev=''; fi
    done
    case ${COMP_WORDS[1]} in
)";
    for (const VerbRow& verb : AllVerbs())
        text += BashVerb(verb);
    return text + "    esac\n}\n\ncomplete -F _orvale orvale\n";
}

std::string ZshCompletion() {
    std::string text = R"(#compdef orvale
# Completes the lines of orvale in zsh.
_orvale() {
    local -a verbs
    verbs=(
)";
    for (const VerbRow& verb : AllVerbs())
        text += "        '" + std::string(verb.word) + ":" + ShellText(verb.about) + "'\n";
    text += R"(    )
    if ((CURRENT == 2)); then
        _describe -t verbs verb verbs
        return
    fi
    shift words
    ((CURRENT--))
    case $words[1] in
)";
    for (const VerbRow& verb : AllVerbs())
        text += ZshVerb(verb);
    return text + "    esac\n}\n\n_orvale \"$@\"\n";
}

std::string FishCompletion() {
    std::string text = R"(# Completes the lines of orvale in fish.
function __orvale_no_verb
    test (count (commandline -opc)) -eq 1
end

function __orvale_verb
    set -l words (commandline -opc)
    test (count $words) -ge 2; and contains -- $words[2] $argv
end

complete -c orvale -f
)";
    for (const VerbRow& verb : AllVerbs())
        text += "complete -c orvale -n __orvale_no_verb -a '" + std::string(verb.word) + "' -d '" +
                FishText(verb.about) + "'\n";
    for (const VerbRow& verb : AllVerbs()) {
        if (verb.files.values == Values::kNone) continue;
        const std::string words = WordsOf(verb.files);
        text += "complete -c orvale -n '__orvale_verb " + std::string(verb.word) + "'" +
                (verb.files.values == Values::kFiles ? " -F" : " -a '" + words + "'") + "\n";
    }
    for (const OptionRow& row : AllOptions())
        text += FishOption(row);
    return text;
}

}  // namespace orvale
