#include "command/line/Options.h"

#include <charconv>

#include "command/console/CommandError.h"
#include "platform/CodePage.h"

namespace orvale {
namespace {

constexpr unsigned Set(std::initializer_list<Verb> verbs) {
    unsigned set = 0;
    for (const Verb verb : verbs)
        set |= 1U << static_cast<unsigned>(verb);
    return set;
}

constexpr unsigned kAllVerbs = ~0U;

void TakeColor(Arguments& arguments, const std::string& word) {
    if (word == "auto")
        arguments.color = ColorMode::kAuto;
    else if (word == "always")
        arguments.color = ColorMode::kAlways;
    else if (word == "never")
        arguments.color = ColorMode::kNever;
    else
        FailUsage("--color takes auto, always or never, not '" + Quote(word) + "'");
}

void TakeCodePage(Arguments& arguments, const std::string& word) {
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || FindCodePage(number) == nullptr)
        FailUsage("unknown code page " + Quote(word));
    arguments.codePage = number;
}

void TakeProfile(Arguments& arguments, const std::string& word) {
    std::vector<std::string>& profiles = arguments.verb == Verb::kShow   ? arguments.show.profiles
                                         : arguments.verb == Verb::kDiff ? arguments.diff.profiles
                                                                         : arguments.convert.profiles;
    profiles.push_back(word);
}

void TakeVCardVersion(Arguments& arguments, const std::string& word) {
    if (word != "3.0" && word != "4.0") FailUsage("--vcard-version takes 3.0 or 4.0, not '" + Quote(word) + "'");
    arguments.convert.options.vcardVersion = word;
}

void TakeWithPasswords(Arguments& arguments, const std::string&) {
    (arguments.verb == Verb::kShow ? arguments.show.withPasswords : arguments.convert.options.withPasswords) = true;
}

constexpr OptionRow kOptions[] = {
    {"--json",
     "",
     {},
     false,
     Set({Verb::kFormats, Verb::kInfo, Verb::kShow, Verb::kDiff}),
     "print the result as JSON",
     "",
     [](Arguments& a, const std::string&) { a.json = true; }},
    {"--csv",
     "",
     {},
     false,
     Set({Verb::kShow}),
     "print the records as a table for spreadsheets",
     "A row for each record, comma-separated and in UTF-8.",
     [](Arguments& a, const std::string&) { a.show.csv = true; }},
    {"--safe-csv",
     "",
     {},
     false,
     Set({Verb::kShow}),
     "such a table, with an apostrophe before what looks like a formula",
     "",
     [](Arguments& a, const std::string&) { a.show.safeCsv = true; }},
    {"--format",
     "",
     {"NAME", Values::kInputFormats},
     false,
     Set({Verb::kInfo, Verb::kShow, Verb::kView, Verb::kDiff}),
     "the format of the file, in place of the one that is found",
     "Named so, a file is read even where its head isn't that of the format.",
     [](Arguments& a, const std::string& word) { a.format = word; }},
    {"--from",
     "",
     {"NAME", Values::kInputFormats},
     false,
     Set({Verb::kConvert}),
     "the format of the inputs, in place of the one that is found",
     "Named so, a file is read even where its head isn't that of the format.",
     [](Arguments& a, const std::string& word) { a.convert.from = word; }},
    {"--to",
     "",
     {"NAME", Values::kOutputFormats},
     false,
     Set({Verb::kConvert}),
     "the format of the output, in place of the one of its extension",
     "",
     [](Arguments& a, const std::string& word) { a.convert.to = word; }},
    {"--codepage",
     "",
     {"N", Values::kOther},
     false,
     Set({Verb::kInfo, Verb::kShow, Verb::kView, Verb::kDiff, Verb::kConvert}),
     "the code page of text in files, such as 1252 (65001 is UTF-8)",
     "Without it ORVALE_CODEPAGE counts, then the locale. Formats of 16-bit text and XML have no need of it.",
     &TakeCodePage},
    {"--profile",
     "",
     {"FILE", Values::kFiles},
     true,
     Set({Verb::kShow, Verb::kDiff, Verb::kConvert}),
     "a phone's profile or the columns of a CSV file, as JSON; once for each side",
     "The file is a JSON document of show --json, or its profile alone; its shape tells the formats that it is for. "
     "Without one the profile of the input counts, then a plain one that convert makes.",
     &TakeProfile},
    {"--with-passwords",
     "",
     {},
     false,
     Set({Verb::kShow, Verb::kConvert}),
     "show passwords, and keep them in JSON",
     "The profile of a mail suite may hold some. They are left out otherwise, and that is told.",
     &TakeWithPasswords},
    {"--profile-only",
     "",
     {},
     false,
     Set({Verb::kShow}),
     "the profile that the file carries, without its records",
     "",
     [](Arguments& a, const std::string&) { a.show.profileOnly = true; }},
    {"--no-profile",
     "",
     {},
     false,
     Set({Verb::kShow}),
     "leave the profile out of the JSON document",
     "",
     [](Arguments& a, const std::string&) { a.show.noProfile = true; }},
    {"--color",
     "",
     {"WHEN", Values::kChoices, "auto always never"},
     false,
     Set({Verb::kShow}),
     "when to use colours: auto, always or never",
     "With auto, on a terminal alone and without NO_COLOR.",
     &TakeColor},
    {"--output",
     "",
     {"PAGE", Values::kFiles},
     false,
     Set({Verb::kView}),
     "write the page there, and open nothing",
     "",
     [](Arguments& a, const std::string& word) { a.view.output = word; }},
    {"--force",
     "",
     {},
     false,
     Set({Verb::kView, Verb::kConvert}),
     "replace an output that exists",
     "",
     [](Arguments& a, const std::string&) { a.view.force = a.convert.force = true; }},
    {"--vcard-version",
     "",
     {"VERSION", Values::kChoices, "3.0 4.0"},
     false,
     Set({Verb::kConvert}),
     "write a vCard of version 3.0 or 4.0, which makes an output named .vcf one of the format vcf",
     "Without it that format is written as 3.0, and an output named .vcf is a vCard 2.1.",
     &TakeVCardVersion},
    {"--unique",
     "",
     {},
     false,
     Set({Verb::kConvert}),
     "write a record that equals an earlier one only once",
     "How many were left out is told.",
     [](Arguments& a, const std::string&) { a.convert.unique = true; }},
    {"--partial",
     "",
     {},
     false,
     Set({Verb::kConvert}),
     "of a damaged input take what comes before the damage",
     "The damage is told and the result is 0. Without this option nothing is written.",
     [](Arguments& a, const std::string&) { a.convert.partial = true; }},
    {"--strict",
     "",
     {},
     false,
     Set({Verb::kConvert}),
     "write nothing and exit with 3 if something would be lost",
     "What is only added is no loss.",
     [](Arguments& a, const std::string&) { a.convert.strict = true; }},
    {"--no-verify",
     "",
     {},
     false,
     Set({Verb::kConvert}),
     "don't read the output back: what it can't hold isn't told",
     "",
     [](Arguments& a, const std::string&) { a.convert.verify = false; }},
    {"--module",
     "",
     {"PATH", Values::kFiles},
     false,
     kAllVerbs & ~Set({Verb::kHelp}),
     "the module to work with, in place of the one beside the command",
     "",
     [](Arguments& a, const std::string& word) { a.module = word; }},
    {"--help", "-h", {}, false, kAllVerbs, "tell this", "", nullptr},
};

}  // namespace

std::span<const OptionRow> AllOptions() {
    return kOptions;
}

std::vector<const OptionRow*> OptionsOf(Verb verb) {
    std::vector<const OptionRow*> rows;
    for (const OptionRow& row : kOptions)
        if ((row.verbs & Set({verb})) != 0) rows.push_back(&row);
    return rows;
}

std::string OptionHead(const OptionRow& row) {
    std::string head(row.letter);
    if (!head.empty()) head += ", ";
    head += row.name;
    if (!row.value.word.empty()) head += " " + std::string(row.value.word);
    return head;
}

}  // namespace orvale
