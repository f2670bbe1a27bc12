#include "command/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "command/CommandError.h"
#include "platform/CodePage.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr const char* kAbout =
    "Lists, shows, checks and converts files of a mobile phone's contacts, calendar, messages and mails.";

struct VerbRow {
    std::string_view word;
    Verb verb;
    const char* about;
    const char* files;  // how its files are called in the help
    std::size_t least;  // how many of them it takes
    std::size_t most;
};

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

constexpr std::array kVerbs{
    VerbRow{"formats", Verb::kFormats, "list the formats", "", 0, 0},
    VerbRow{"info", Verb::kInfo, "tell what files are and whether they are whole", "FILE...", 1, kAnyNumber},
    VerbRow{"show", Verb::kShow, "print the records of a file", "FILE", 1, 1},
    VerbRow{"diff", Verb::kDiff, "tell what the records of two files differ in", "FILE FILE", 2, 2},
    VerbRow{"convert", Verb::kConvert, "write the records of files into a file of another format", "INPUT... OUTPUT", 2,
            kAnyNumber},
    VerbRow{"log", Verb::kLog, "show or set the log of the module in use", "[off|file|debug|both]", 0, 1},
};

std::string VerbList() {
    std::string list;
    for (const VerbRow& row : kVerbs)
        list += (list.empty() ? "" : ", ") + std::string(row.word);
    return list;
}

const VerbRow& FindVerb(std::string_view word) {
    for (const VerbRow& row : kVerbs)
        if (row.word == word) return row;
    FailUsage("unknown verb '" + Quote(word) + "'; the verbs are " + VerbList());
}

std::string Overview() {
    std::string text = std::string("Usage: orvale VERB [OPTIONS] ...\n\n") + kAbout + "\n\n";
    for (const VerbRow& row : kVerbs) {
        std::string head = "  orvale " + std::string(row.word) + " " + row.files;
        head.resize(std::max<std::size_t>(head.size() + 1, 40), ' ');
        text += head + row.about + "\n";
    }
    return text +
           "\n'orvale VERB --help' tells the options of a verb. The result is 0 when all was done, 1 when a file\n"
           "failed, 2 when the command line can't be acted on, 3 when --strict met a loss.\n";
}

ColorMode ColorOf(const std::string& word) {
    if (word == "auto") return ColorMode::kAuto;
    if (word == "always") return ColorMode::kAlways;
    if (word == "never") return ColorMode::kNever;
    FailUsage("--color takes auto, always or never, not '" + Quote(word) + "'");
}

void AddOptions(CLI::App& app, Arguments& arguments, int& codePage) {
    app.add_option("--module", arguments.module, "the module to work with, in place of the one beside the command")
        ->type_name("PATH");
    const bool takesFormat =
        arguments.verb == Verb::kInfo || arguments.verb == Verb::kShow || arguments.verb == Verb::kDiff;
    if (arguments.verb == Verb::kFormats || takesFormat) app.add_flag("--json", arguments.json, "the result as JSON");
    if (takesFormat)
        app.add_option("--format", arguments.format, "the format of the file, in place of the one that is found")
            ->type_name("NAME");
    if (takesFormat || arguments.verb == Verb::kConvert)
        app.add_option("--codepage", codePage, "the code page of text in files, such as 1252 (65001 is UTF-8)")
            ->type_name("N");
    if (arguments.verb == Verb::kDiff)
        app.add_option("--profile", arguments.diff.profiles, "the columns of a CSV file, as JSON")
            ->type_name("FILE")
            ->allow_extra_args(false);
    if (arguments.verb == Verb::kShow || arguments.verb == Verb::kConvert) {
        const bool shows = arguments.verb == Verb::kShow;
        app.add_option("--profile", shows ? arguments.show.profiles : arguments.convert.profiles,
                       "a phone's profile or the columns of a CSV file, as JSON; once for each side")
            ->type_name("FILE")
            ->allow_extra_args(false);
        app.add_flag("--with-passwords", shows ? arguments.show.withPasswords : arguments.convert.options.withPasswords,
                     "show passwords, and keep them in JSON");
    }
    if (arguments.verb == Verb::kShow) {
        app.add_flag("--profile-only", arguments.show.profileOnly,
                     "the profile that the file carries, without its records");
        app.add_flag("--no-profile", arguments.show.noProfile, "leave the profile out of the JSON document");
        app.add_option_function<std::string>(
               "--color", [&](const std::string& word) { arguments.color = ColorOf(word); },
               "when to use colours: auto, always or never")
            ->type_name("WHEN");
    }
    if (arguments.verb != Verb::kConvert) return;
    ConvertOrder& order = arguments.convert;
    app.add_option("--from", order.from, "the format of the inputs, in place of the one that is found")
        ->type_name("NAME");
    app.add_option("--to", order.to, "the format of the output, in place of the one of its extension")
        ->type_name("NAME");
    app.add_flag("--force", order.force, "replace an output that exists");
    app.add_flag("--unique", order.unique, "write a record that equals an earlier one only once");
    app.add_flag("--partial", order.partial, "of a damaged input take what comes before the damage");
    app.add_flag("--strict", order.strict, "write nothing and exit with 3 if something would be lost");
    app.add_flag_callback(
        "--no-verify", [&order] { order.verify = false; }, "don't read the output back: what it can't hold isn't told");
}

}  // namespace

std::optional<Arguments> ParseArguments(int count, const char* const* words, std::string& text) {
    const std::string_view first = count > 1 ? words[1] : "";
    if (first.empty()) FailUsage("a verb is missing; the verbs are " + VerbList());
    if (first == "--help" || first == "-h" || first == "help") {
        text = Overview();
        return std::nullopt;
    }
    if (first == "--version") {
        text = std::string("orvale ") + ORVALE_VERSION + "\n";
        return std::nullopt;
    }
    const VerbRow& row = FindVerb(first);

    Arguments arguments;
    arguments.verb = row.verb;
    int codePage = 0;
    CLI::App app(row.about);
    app.name("orvale " + std::string(row.word));
    AddOptions(app, arguments, codePage);
    // The files are taken as what is left over: as an option of its own the list would split a name in brackets.
    app.allow_extras();
    std::vector<std::string> rest(words + 2, words + count);
    std::reverse(rest.begin(), rest.end());
    try {
        app.parse(rest);
    } catch (const CLI::CallForHelp&) {
        text = app.help();
        const std::string usage = "[OPTIONS]";
        text.insert(text.find(usage) + usage.size(), std::string(" ") + row.files);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        FailUsage(Visible(FromUtf8(error.what())));
    }

    bool onlyFiles = false;
    for (const std::string& word : app.remaining()) {
        if (!onlyFiles && word == "--")
            onlyFiles = true;
        else if (!onlyFiles && word.size() > 1 && word.front() == '-')
            FailUsage("unknown option '" + Quote(word) + "'");
        else
            arguments.files.push_back(word);
    }
    if (arguments.files.size() < row.least) FailUsage(std::string(row.word) + " takes " + row.files);
    if (arguments.files.size() > row.most)
        FailUsage("too many arguments; " + std::string(row.word) + " takes " + (row.most == 0 ? "none" : row.files));
    for (const char* const option : {"--format", "--from", "--to", "--module"}) {
        const CLI::Option* const found = app.get_option_no_throw(option);
        if (found != nullptr && found->count() != 0 && found->as<std::string>().empty())
            FailUsage(std::string(option) + " is empty");
    }
    if (app.get_option_no_throw("--codepage") != nullptr && app.count("--codepage") != 0) {
        if (FindCodePage(codePage) == nullptr) FailUsage("unknown code page " + std::to_string(codePage));
        arguments.codePage = codePage;
    }
    return arguments;
}

}  // namespace orvale
