#include "command/line/Verbs.h"

#include <stdexcept>
#include <vector>

#include "command/console/CommandError.h"
#include "command/console/EditDistance.h"

namespace orvale {
namespace {

constexpr Example kInfoExamples[] = {
    {"orvale info contacts.qzs mails.eml", "Two files, a line for each"},
    {"orvale info --json calendar.cal", "The same for a script"},
};

constexpr Example kShowExamples[] = {
    {"orvale show contacts.vcf", "The contacts of a vCard file"},
    {"orvale show --codepage 1252 contacts-cp1252.vcf", "A file from a phone that wrote Western European text"},
    {"orvale show --json calendar.cal", "A calendar as a JSON document"},
    {"orvale show --profile-only phonebook.xml", "What the phone of a phonebook suite can store"},
};

constexpr Example kViewExamples[] = {
    {"orvale view --output phone.html contacts.qzs calendar.cal messages.sms mails.eml", "A whole phone on one page"},
};

constexpr Example kDiffExamples[] = {
    {"orvale diff messages.json messages.sms", "Whether two files hold the same messages, whatever their formats"},
    {"orvale diff --json calendar.json calendar.cal", "The same for a script"},
};

constexpr Example kConvertExamples[] = {
    {"orvale convert contacts.vcf phone.qzs", "A vCard file into the native contact file"},
    {"orvale convert --codepage 1252 contacts-cp1252.vcf phone.json", "Western European text into a JSON document"},
    {"orvale convert contacts.vcf contacts.qzs all.xml", "The contacts of two files into one phonebook suite"},
    {"orvale convert --to vcalendar calendar.cal entries", "Each entry of a calendar into a file of a new folder"},
    {"orvale convert --strict messages.sms sms.xml", "Messages into a suite, but only if nothing is lost"},
};

constexpr Example kLogExamples[] = {
    {"orvale log", "Where the log stands, and whether it is on"},
};

constexpr VerbRow kVerbs[] = {
    {.verb = Verb::kFormats, .word = "formats", .about = "list the formats"},
    {.verb = Verb::kInfo,
     .word = "info",
     .files = {"FILE...", Values::kFiles},
     .least = 1,
     .most = kAnyNumber,
     .about = "tell what files are and whether they are whole",
     .more = "A folder of files that hold one record each counts as well, and - is standard input, whose format "
             "--format names. The result is 1 if a file can't be read, is damaged or cut short.",
     .examples = kInfoExamples},
    {.verb = Verb::kShow,
     .word = "show",
     .files = {"FILE", Values::kFiles},
     .least = 1,
     .most = 1,
     .about = "print the records of a file",
     .more = "FILE may be -, standard input, whose format --format names. The listing is for a person; the document "
             "that --json prints is for scripts, and convert takes it back. Of a damaged file what came whole is "
             "printed, then the place of the damage is told and the result is 1. The columns of a CSV file are known "
             "by the English captions that orvale(5) lists, and by \"Type N\"; --profile names others, as "
             "{\"columns\": [{\"caption\": \"Handy\", \"type\": 104}]}.",
     .examples = kShowExamples},
    {.verb = Verb::kView,
     .word = "view",
     .files = {"FILE...", Values::kFiles},
     .least = 1,
     .most = kAnyNumber,
     .about = "show the records of files as a page in the browser",
     .more = "Files of several kinds make one page: contacts, calendar, messages as threads, mails. It needs no "
             "network, and stays in the folder for temporary files, readable by you alone. Where no browser opens, a "
             "line tells where it is and the result is 1. Of a damaged file what came whole is on the page.",
     .examples = kViewExamples},
    {.verb = Verb::kDiff,
     .word = "diff",
     .files = {"FILE FILE", Values::kFiles},
     .least = 2,
     .most = 2,
     .about = "tell what the records of two files differ in",
     .more = "Equal records find each other wherever they stand; of the others, those of one name, then those of one "
             "place are held against each other. The result is 1 if anything differs.",
     .examples = kDiffExamples},
    {.verb = Verb::kConvert,
     .word = "convert",
     .files = {"INPUT... OUTPUT", Values::kFiles},
     .least = 2,
     .most = kAnyNumber,
     .about = "write the records of files into a file of another format",
     .more = "Several inputs of one kind are joined in their order. - is standard input or standard output, whose "
             "format --from or --to names. OUTPUT is written beside its place and read back; what did not survive and "
             "what was added is told, and only then does it take its place. Where a file of the format holds one "
             "record, more of them make OUTPUT a new folder. 'orvale help show' tells how a CSV file gets a profile.",
     .examples = kConvertExamples},
    {.verb = Verb::kLog,
     .word = "log",
     .files = {"[off|file|debug|both]", Values::kChoices, "off file debug both"},
     .most = 1,
     .about = "show or set the log of the module in use",
     .more = "The module writes it into a file beside itself, to standard error (debug), or both. It reads the switch "
             "when it is loaded. The log holds personal data in full.",
     .examples = kLogExamples},
    {.verb = Verb::kHelp,
     .word = "help",
     .files = {"[VERB]", Values::kVerbs},
     .most = 1,
     .about = "tell the verbs, or the options of one"},
    {.verb = Verb::kVersion, .word = "--version", .about = "tell the version and the module in use"},
};

}  // namespace

std::span<const VerbRow> AllVerbs() {
    return kVerbs;
}

const VerbRow& RowOfVerb(Verb verb) {
    for (const VerbRow& row : kVerbs)
        if (row.verb == verb) return row;
    throw std::logic_error("a verb without its row");
}

std::string VerbList() {
    std::string list;
    for (const VerbRow& row : kVerbs)
        if (!row.word.starts_with('-')) list += (list.empty() ? "" : ", ") + std::string(row.word);
    return list;
}

const VerbRow& VerbOfWord(std::string_view word) {
    if (word == "-h" || word == "--help") return RowOfVerb(Verb::kHelp);
    std::vector<std::string_view> words;
    for (const VerbRow& row : kVerbs) {
        if (row.word == word) return row;
        words.push_back(row.word);
    }
    std::string reason = "unknown verb '" + Quote(word) + "'";
    const std::string_view near = NearestWord(word, words);
    if (!near.empty()) FailUsage(reason + "; is '" + std::string(near) + "' meant? (the verbs are " + VerbList() + ")");
    if (word.starts_with('-')) reason += "; options come behind the verb";
    FailUsage(reason + "; the verbs are " + VerbList());
}

}  // namespace orvale
