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

void TakeVCardVersion(Arguments& arguments, const std::string& word) {
    if (word != "3.0" && word != "4.0") FailUsage("--vcard-version takes 3.0 or 4.0, not '" + Quote(word) + "'");
    arguments.vcardVersion = word;
}

constexpr OptionRow kOptions[] = {
    {.name = "--json",
     .verbs = Set({Verb::kFormats, Verb::kInfo, Verb::kShow, Verb::kDiff}),
     .help = "print the result as JSON",
     .take = [](Arguments& a, const std::string&) { a.json = true; }},
    {.name = "--csv",
     .verbs = Set({Verb::kShow}),
     .help = "print the records as a table for spreadsheets",
     .more = "A row for each record, comma-separated and in UTF-8.",
     .take = [](Arguments& a, const std::string&) { a.csv = true; }},
    {.name = "--safe-csv",
     .verbs = Set({Verb::kShow}),
     .help = "such a table, with an apostrophe before what looks like a formula",
     .take = [](Arguments& a, const std::string&) { a.csv = a.safeCsv = true; }},
    {.name = "--format",
     .value = {"NAME", Values::kInputFormats},
     .verbs = Set({Verb::kInfo, Verb::kShow, Verb::kView, Verb::kDiff}),
     .help = "the format of the file, in place of the one that is found",
     .more = "Named so, a file is read even where its head isn't that of the format.",
     .take = [](Arguments& a, const std::string& word) { a.format = word; }},
    {.name = "--from",
     .value = {"NAME", Values::kInputFormats},
     .verbs = Set({Verb::kConvert}),
     .help = "the format of the inputs, in place of the one that is found",
     .more = "Named so, a file is read even where its head isn't that of the format.",
     .take = [](Arguments& a, const std::string& word) { a.format = word; }},
    {.name = "--to",
     .value = {"NAME", Values::kOutputFormats},
     .verbs = Set({Verb::kConvert}),
     .help = "the format of the output, in place of the one of its extension",
     .take = [](Arguments& a, const std::string& word) { a.to = word; }},
    {.name = "--codepage",
     .value = {"N", Values::kOther},
     .verbs = Set({Verb::kInfo, Verb::kShow, Verb::kView, Verb::kDiff, Verb::kConvert}),
     .help = "the code page of text in files, such as 1252 (65001 is UTF-8)",
     .more = "Without it ORVALE_CODEPAGE counts, then the locale. Formats of 16-bit text and XML have no need of it.",
     .take = &TakeCodePage},
    {.name = "--profile",
     .value = {"FILE", Values::kFiles},
     .repeats = true,
     .verbs = Set({Verb::kShow, Verb::kView, Verb::kDiff, Verb::kConvert}),
     .help = "a phone's profile or the columns of a CSV file, as JSON; once for each side",
     .more = "The file is a JSON document of show --json, or its profile alone; its shape tells which "
             "formats it is for. Without one the profile of the input counts, then a plain one that convert makes.",
     .take = [](Arguments& a, const std::string& word) { a.profiles.push_back(word); }},
    {.name = "--with-passwords",
     .verbs = Set({Verb::kShow, Verb::kConvert}),
     .help = "show passwords, and keep them in JSON",
     .more = "The profile of a mail suite may hold some. They are left out otherwise, and that is told.",
     .take = [](Arguments& a, const std::string&) { a.withPasswords = true; }},
    {.name = "--profile-only",
     .verbs = Set({Verb::kShow}),
     .help = "the profile that the file carries, without its records",
     .take = [](Arguments& a, const std::string&) { a.profileOnly = true; }},
    {.name = "--no-profile",
     .verbs = Set({Verb::kShow}),
     .help = "leave the profile out of the JSON document",
     .take = [](Arguments& a, const std::string&) { a.noProfile = true; }},
    {.name = "--color",
     .value = {"WHEN", Values::kChoices, "auto always never"},
     .verbs = Set({Verb::kShow}),
     .help = "when to use colours: auto, always or never",
     .more = "With auto, on a terminal alone and without NO_COLOR.",
     .take = &TakeColor},
    {.name = "--output",
     .value = {"PAGE", Values::kFiles},
     .verbs = Set({Verb::kView}),
     .help = "write the page there, and open nothing",
     .take = [](Arguments& a, const std::string& word) { a.output = word; }},
    {.name = "--force",
     .verbs = Set({Verb::kView, Verb::kConvert}),
     .help = "replace an output that exists",
     .take = [](Arguments& a, const std::string&) { a.force = true; }},
    {.name = "--vcard-version",
     .value = {"VERSION", Values::kChoices, "3.0 4.0"},
     .verbs = Set({Verb::kConvert}),
     .help = "write a vCard of version 3.0 or 4.0, which makes an output named .vcf one of the format vcf",
     .more = "Without it that format is written as 3.0, and an output named .vcf is a vCard 2.1.",
     .take = &TakeVCardVersion},
    {.name = "--unique",
     .verbs = Set({Verb::kConvert}),
     .help = "write a record that equals an earlier one only once",
     .more = "How many were left out is told.",
     .take = [](Arguments& a, const std::string&) { a.unique = true; }},
    {.name = "--partial",
     .verbs = Set({Verb::kConvert}),
     .help = "of a damaged input take what comes before the damage",
     .more = "The damage is told and the result is 0. Without this option nothing is written.",
     .take = [](Arguments& a, const std::string&) { a.partial = true; }},
    {.name = "--strict",
     .verbs = Set({Verb::kConvert}),
     .help = "write nothing and exit with 3 if something would be lost",
     .more = "What is only added is no loss.",
     .take = [](Arguments& a, const std::string&) { a.strict = true; }},
    {.name = "--no-verify",
     .verbs = Set({Verb::kConvert}),
     .help = "don't read the output back: what it can't hold isn't told",
     .take = [](Arguments& a, const std::string&) { a.verify = false; }},
    {.name = "--module",
     .value = {"PATH", Values::kFiles},
     .verbs = kAllVerbs & ~Set({Verb::kHelp}),
     .help = "the module to work with, in place of the one beside the command",
     .take = [](Arguments& a, const std::string& word) { a.module = word; }},
    {.name = "--help", .letter = "-h", .verbs = kAllVerbs, .help = "tell this"},
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
