#include "command/line/Manual.h"

#include <fstream>
#include <vector>

#include "command/formats/FormatTable.h"
#include "command/line/Help.h"
#include "command/line/Options.h"

namespace orvale {
namespace {

struct EnvironmentRow {
    std::string_view name;
    std::string_view about;
};

constexpr EnvironmentRow kEnvironment[] = {
    {"ORVALE_CODEPAGE",
     "The code page of 8-bit text, a number such as 1252. --codepage goes before it, the locale "
     "(LC_ALL, LC_CTYPE, LANG) comes after it."},
    {"ORVALE_REGISTRY", "The registry file, which holds the switch of the log."},
    {"XDG_CONFIG_HOME",
     "Where ORVALE_REGISTRY is not set, the registry file is orvale/user.reg in this folder, and "
     "in .config of the home folder where this isn't set either."},
    {"TMPDIR",
     "The folder for the temporary files of standard input and standard output, and for the page of view, in place of "
     "/tmp."},
    {"NO_COLOR", "If it is set and not empty, nothing is coloured unless --color=always asks for it."},
};

// What a shape of profiles is, in a sentence about a format.
std::string_view ProfileSentence(ProfileShape shape) {
    switch (shape) {
        case ProfileShape::kNone:
            return "It takes no profile.";
        case ProfileShape::kColumns:
            return "Its profile is a list of columns, each a caption and a type of value.";
        case ProfileShape::kPhonebook:
            return "Its profile tells the phone's memories, and the types of values and the groups that each takes.";
        case ProfileShape::kCalendar:
            return "Its profile tells what the phone's calendar can hold.";
        case ProfileShape::kSms:
            return "Its profile tells the phone's memories and boxes of messages, and the limits of a message.";
        case ProfileShape::kEmail:
            return "Its profile tells the phone's mail accounts and their boxes.";
        case ProfileShape::kAny:
            return "Its profile is that of the kind.";
    }
    return "";
}

// Characters as they stand, for what is typed.
std::string Literal(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '\\':
                out += "\\e";
                break;
            case '-':
                out += "\\-";
                break;
            case '\'':
                out += "\\(aq";
                break;
            case '`':
                out += "\\(ga";
                break;
            case '^':
                out += "\\(ha";
                break;
            case '~':
                out += "\\(ti";
                break;
            case '"':
                out += "\\(dq";
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::string Bold(std::string_view text) {
    return "\\fB" + Literal(text) + "\\fR";
}

// One word of prose: an option and what stood between backticks is bold.
std::string ProseWord(std::string_view word) {
    if (!word.starts_with("--")) {
        std::string out;
        for (const char c : word)
            out += c == '\\' ? "\\e" : std::string(1, c);
        return out;
    }
    const std::size_t end = word.find_last_not_of(".,;:)") + 1;
    return Bold(word.substr(0, end)) + std::string(word.substr(end));
}

// Prose, each sentence from a new line on: words of it and spans between backticks; of a link its text stays.
std::string Prose(std::string_view text) {
    constexpr std::size_t kWidth = 66;
    std::string out;
    const auto column = [&] { return out.size() - (out.rfind('\n') + 1); };
    const auto atLineStart = [&] { return out.empty() || out.back() == '\n'; };
    while (!text.empty()) {
        if (text.front() == ' ') {
            const bool sentence = out.ends_with('.') && text.size() > 1 && text[1] >= 'A' && text[1] <= 'Z';
            text.remove_prefix(1);
            const std::size_t size = std::min(text.find(' '), text.size());
            out += sentence || column() + size > kWidth ? '\n' : ' ';
        } else if (text.front() == '`' && text.find('`', 1) != std::string_view::npos) {
            const std::size_t end = text.find('`', 1);
            out += Bold(text.substr(1, end - 1));
            text.remove_prefix(end + 1);
        } else if (const std::size_t middle = text.find("]("); text.front() == '[' && middle < text.find(']') + 1) {
            const std::size_t end = std::min(text.find(')', middle), text.size() - 1);
            out += Prose(text.substr(1, middle - 1));
            text.remove_prefix(end + 1);
        } else {
            const std::size_t size = std::min(text.find_first_of(" `[", 1), text.size());
            if (atLineStart() && (text.front() == '.' || text.front() == '\'')) out += "\\&";
            out += ProseWord(text.substr(0, size));
            text.remove_prefix(size);
        }
    }
    return out;
}

std::string Title(std::string_view section, const std::string& date) {
    return ".TH ORVALE " + std::string(section) + " \"" + date + "\" \"Orvale " ORVALE_VERSION "\" \"Orvale\"\n";
}

std::string Section(std::string_view name) {
    return ".SH " + std::string(name) + "\n";
}

// An entry of a list: its head, which is roff already, and what is told of it.
std::string Entry(const std::string& head, const std::string& text) {
    return ".TP\n" + head + "\n" + Prose(text) + "\n";
}

std::string Sentences(std::string_view line, std::string_view more) {
    return Sentence(line) + (more.empty() ? "" : " " + std::string(more));
}

// What stands for a value: in italics, but for the brackets and dots around it.
std::string Italic(std::string_view word) {
    return "\\fI" + Literal(word) + "\\fR";
}

std::string VerbHead(const VerbRow& row) {
    return Bold(row.word) + (row.files.word.empty() ? "" : " " + Italic(row.files.word));
}

std::string OptionEntry(const OptionRow& row) {
    std::string head = row.letter.empty() ? "" : Bold(row.letter) + ", ";
    head += Bold(row.name);
    if (!row.value.word.empty()) head += " " + Italic(row.value.word);
    std::string verbs;
    std::size_t count = 0;
    for (const VerbRow& verb : AllVerbs()) {
        for (const OptionRow* each : OptionsOf(verb.verb)) {
            if (each != &row) continue;
            ++count;
            verbs += (verbs.empty() ? "" : ", ") + std::string(verb.word);
        }
    }
    const bool all = count + 1 >= AllVerbs().size();  // "help" needs no module
    return Entry(head, Sentences(row.help, row.more) + (all ? "" : " Taken by " + verbs + "."));
}

// The prose that a page has before its first section: its title and the paragraphs behind the table.
struct PageHead {
    std::string title;
    std::vector<std::string> paragraphs;
};

PageHead HeadOf(const std::filesystem::path& page) {
    PageHead head;
    std::ifstream in(page);
    std::string paragraph;
    const auto end = [&] {
        if (!paragraph.empty()) head.paragraphs.push_back(paragraph);
        paragraph.clear();
    };
    for (std::string line; std::getline(in, line) && !line.starts_with("## ");) {
        if (line.starts_with("# ")) {
            head.title = line.substr(2);
        } else if (line.empty() || line.front() == '|' || line.starts_with("    ")) {
            end();
        } else {
            paragraph += (paragraph.empty() ? "" : " ") + line;
        }
    }
    end();
    return head;
}

// By which columns are known that no profile names.
std::string BuiltInCaptions() {
    std::string text = "The captions that orvale knows, each with its type:";
    for (const ContactFieldType& type : kContactFieldTypes)
        text += (type.id == kContactFieldTypes->id ? " " : ", ") + std::string(type.caption) + " (" +
                std::to_string(type.id) + ")";
    return text + ".";
}

std::string FormatEntry(const FormatRow& row, const std::filesystem::path& documents) {
    const PageHead page = HeadOf(documents / (std::string(row.name) + ".md"));
    std::string text = ".SS " + std::string(row.name) + "\n";
    if (!page.title.empty()) text += Prose(page.title) + ".\n";
    text += "Kind: " + (row.kind ? std::string(KindWord(*row.kind)) : "all") + ".\n";
    text += "Extension: " + Bold(row.extension) + ".\n";
    if (!row.lacks.empty())
        text += "It needs " + std::string(row.lacks) + ", which this build goes without.\n";
    else
        text += !row.Reads() ? "It is only written.\n"
                : row.writes ? "It is read and written.\n"
                             : "It is only read.\n";
    text += Prose(ProfileSentence(row.profile)) + "\n";
    for (const std::string& paragraph : page.paragraphs)
        text += ".PP\n" + Prose(paragraph) + "\n";
    if (row.profile == ProfileShape::kColumns) text += ".PP\n" + Prose(BuiltInCaptions()) + "\n";
    return text;
}

}  // namespace

std::string CommandPage(const std::string& date) {
    std::string text = Title("1", date) + Section("NAME") +
                       "orvale \\- list, show, check and convert files of a mobile phone's data\n" +
                       Section("SYNOPSIS");
    for (const VerbRow& row : AllVerbs())
        text += (row.verb == AllVerbs().front().verb ? "" : ".br\n") + std::string(".B orvale\n") + Bold(row.word) +
                (row.verb == Verb::kHelp ? "" : " [\\fIOPTIONS\\fR]") +
                (row.files.word.empty() ? "" : " " + Italic(row.files.word)) + "\n";
    text += Section("DESCRIPTION") + Prose(kAboutCommand) + "\n" +
            Prose(
                "The format of a file is known by its content, then by its extension; `orvale formats` lists the "
                "formats, and orvale(5) tells what each is.") +
            "\n.PP\n" +
            Prose(
                "Results go to standard output, everything else to standard error. Options stand behind the verb; what "
                "follows `--` is no option.") +
            "\n" + Section("VERBS");
    for (const VerbRow& row : AllVerbs())
        text += Entry(VerbHead(row), Sentences(row.about, row.more));
    text +=
        Section("OPTIONS") + Prose("An option that doesn't tell by which verbs it is taken is taken by all.") + "\n";
    for (const OptionRow& row : AllOptions())
        text += OptionEntry(row);
    text += Section("\"EXIT STATUS\"");
    for (const ExitRow& row : AllExitCodes())
        text += Entry(Bold(std::to_string(static_cast<int>(row.code))), Sentence(row.about));
    text += Section("ENVIRONMENT");
    for (const EnvironmentRow& row : kEnvironment)
        text += Entry(Bold(row.name), std::string(row.about));
    text += Section("FILES") +
            Entry(Bold("Orvale.so"),
                  "The module that reads and writes the formats. It is looked for "
                  "beside the command, then where it was installed.") +
            Entry(Bold("~/.config/orvale/user.reg"), "The registry file.") +
            Entry(Bold("Orvale.log"), "The log of the module, beside it.");
    text += Section("EXAMPLES");
    for (const VerbRow& row : AllVerbs())
        for (const Example& example : row.examples)
            text += Prose(example.about) + ":\n.PP\n.EX\n    " + Literal(example.line) + "\n.EE\n.PP\n";
    if (text.ends_with(".PP\n")) text.resize(text.size() - 4);
    return text + Section("\"SEE ALSO\"") + ".BR orvale (5)\n";
}

std::string FormatsPage(const std::filesystem::path& documents, const std::string& date) {
    std::string text =
        Title("5", date) + Section("NAME") + "orvale \\- the file formats that orvale reads and writes\n" +
        Section("DESCRIPTION") +
        Prose(
            "Each format holds records of one kind: contacts, calendar, sms or email; the JSON document "
            "and the HTML page take any of them. The words at the head of each section name a format behind "
            "--from, --to and --format of orvale(1).") +
        "\n.PP\n" +
        Prose(
            "A profile tells what a phone can store, or what the columns of a file mean. orvale shows "
            "that of a file with --profile-only and takes one with --profile.") +
        "\n" + Section("FORMATS");
    for (const FormatRow& row : FormatTable())
        text += FormatEntry(row, documents);
    return text + Section("\"SEE ALSO\"") + ".BR orvale (1)\n";
}

}  // namespace orvale
