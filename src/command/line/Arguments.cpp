#include "command/line/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "command/console/CommandError.h"
#include "command/console/EditDistance.h"
#include "command/line/Options.h"
#include "platform/Text.h"

namespace orvale {
namespace {

std::string NameOf(const OptionRow& row) {
    return (row.letter.empty() ? "" : std::string(row.letter) + ",") + std::string(row.name);
}

// Makes an option known to the parser, by its row.
void Add(CLI::App& app, const OptionRow& row, Arguments& arguments) {
    if (row.take == nullptr) {
        app.set_help_flag(NameOf(row));
        return;
    }
    if (row.value.word.empty()) {
        app.add_flag_callback(NameOf(row), [&] { row.take(arguments, ""); });
        return;
    }
    const auto take = [&](const std::string& word) {
        if (word.empty()) FailUsage(std::string(row.name) + " is empty");
        row.take(arguments, word);
    };
    CLI::Option* option = nullptr;
    if (row.repeats)
        option = app.add_option_function<std::vector<std::string>>(
                        NameOf(row), [take](const auto& words) { std::for_each(words.begin(), words.end(), take); })
                     ->allow_extra_args(false);
    else
        option = app.add_option_function<std::string>(NameOf(row), take);
    option->type_name(std::string(row.value.word));
}

[[noreturn]] void FailOption(const std::string& word, Verb verb) {
    const std::string_view name = std::string_view(word).substr(0, word.find('='));
    std::vector<std::string_view> names;
    for (const OptionRow* row : OptionsOf(verb))
        names.push_back(row->name);
    const std::string_view near = name.starts_with("--") ? NearestWord(name, names) : "";
    FailUsage("unknown option '" + Quote(word) + "'" + (near.empty() ? "" : "; is '" + std::string(near) + "' meant?"));
}

}  // namespace

Arguments ParseArguments(int count, const char* const* words) {
    const std::string_view first = count > 1 ? words[1] : "";
    if (first.empty())
        FailUsage("a verb is missing; the verbs are " + VerbList() + " ('orvale help' tells what they do)");
    const VerbRow& row = VerbOfWord(first);

    Arguments arguments;
    arguments.verb = row.verb;
    CLI::App app;
    for (const OptionRow* option : OptionsOf(row.verb))
        Add(app, *option, arguments);
    // The files are taken as what is left over: as an option of its own the list would split a name in brackets.
    app.allow_extras();
    std::vector<std::string> rest(words + 2, words + count);
    std::reverse(rest.begin(), rest.end());
    try {
        app.parse(rest);
    } catch (const CLI::CallForHelp&) {
        arguments.verb = Verb::kHelp;
        arguments.files = {std::string(row.word)};
        return arguments;
    } catch (const CLI::ParseError& error) {
        FailUsage(Visible(FromUtf8(error.what())));
    }

    bool onlyFiles = false;
    for (const std::string& word : app.remaining()) {
        if (!onlyFiles && word == "--")
            onlyFiles = true;
        else if (!onlyFiles && word.size() > 1 && word.front() == '-')
            FailOption(word, row.verb);
        else
            arguments.files.push_back(word);
    }
    const std::string takes = std::string(row.word) + " takes ";
    if (arguments.files.size() < row.least) FailUsage(takes + std::string(row.files.word));
    if (arguments.files.size() > row.most)
        FailUsage("too many arguments; " + takes + (row.most == 0 ? "none" : std::string(row.files.word)));
    return arguments;
}

}  // namespace orvale
