#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Program.h"
#include "command/console/EditDistance.h"
#include "command/formats/FormatTable.h"
#include "command/line/Completions.h"
#include "command/line/Manual.h"
#include "command/line/Options.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

constexpr char kInfoHelp[] = R"(Usage: orvale info [OPTIONS] FILE...

Tell what files are and whether they are whole. A folder of files that hold one
record each counts as well, and - is standard input, whose format --format
names. The result is 1 if a file can't be read, is damaged or cut short.

Options:
  --json              print the result as JSON
  --format NAME       the format of the file, in place of the one that is found
  --codepage N        the code page of text in files, such as 1252 (65001 is
                      UTF-8)
  --module PATH       the module to work with, in place of the one beside the
                      command
  -h, --help          tell this

Examples:
  orvale info contacts.qzs mails.eml
      Two files, a line for each
  orvale info --json calendar.cal
      The same for a script
)";

std::string Roff(std::string_view word) {
    std::string out;
    for (const char c : word)
        out += c == '-' ? "\\-" : std::string(1, c);
    return out;
}

// A word in a list of words of a shell.
auto HasWord(std::string_view word) {
    return testing::ContainsRegex("['( ]" + std::string(word) + "[') ]");
}

TEST(HelpTest, AVerbTellsItsOptionsAndExamples) {
    const ScratchFolder folder;
    for (const char* words : {"help info", "info --help", "info -h", "info --json missing --help", "--help info"})
        EXPECT_EQ(RunOrvale(folder, words).output, kInfoHelp) << words;
}

TEST(HelpTest, TheOverviewNamesEveryVerb) {
    const ScratchFolder folder;
    const std::string overview = RunOrvale(folder, "help").output;
    EXPECT_EQ(RunOrvale(folder, "--help").output, overview);
    for (const VerbRow& row : AllVerbs())
        EXPECT_THAT(overview, HasSubstr("\n  " + std::string(row.word) + " " + std::string(row.files.word)));
}

// Every row of the table is an option that the parser takes and the help of its verbs tells, and no other verb's.
TEST(HelpTest, AnOptionBelongsToItsVerbs) {
    const ScratchFolder folder;
    for (const VerbRow& verb : AllVerbs()) {
        const std::string help = RunOrvale(folder, std::string(verb.word) + " --help").output;
        std::size_t options = 0;
        for (const OptionRow& row : AllOptions()) {
            SCOPED_TRACE(std::string(verb.word) + " " + std::string(row.name));
            EXPECT_FALSE(row.help.empty());
            const std::vector<const OptionRow*> rows = OptionsOf(verb.verb);
            const bool takes = std::find(rows.begin(), rows.end(), &row) != rows.end();
            options += takes ? 1 : 0;
            EXPECT_EQ(help.find("\n  " + OptionHead(row)) != std::string::npos, takes);
            const std::string value = row.value.word.empty() ? "" : "=x";
            const std::string errors =
                RunOrvale(folder, std::string(verb.word) + " " + std::string(row.name) + value, "ORVALE_REGISTRY=reg")
                    .errors;
            EXPECT_EQ(errors.find("unknown option") == std::string::npos, takes) << errors;
        }
        EXPECT_GT(options, 0U);
    }
}

// What is installed beside the command names every verb, option and format: it comes from the tables, and a format that
// joins them needs its page.
TEST(HelpTest, ManualAndCompletionsNameEverything) {
    const std::string command = CommandPage("2026-01-02");
    const std::string formats = FormatsPage(ORVALE_ROOT "/docs/formats", "2026-01-02");
    const std::string completions[] = {BashCompletion(), ZshCompletion(), FishCompletion()};
    EXPECT_THAT(command, testing::StartsWith(".TH ORVALE 1 \"2026-01-02\" "));
    EXPECT_THAT(formats, HasSubstr("title (4035)."));  // the captions of CSV, to the last one
    for (const VerbRow& row : AllVerbs()) {
        EXPECT_THAT(command, HasSubstr("\n\\fB" + Roff(row.word)));
        for (const std::string& text : completions)
            EXPECT_THAT(text, HasSubstr(std::string(row.word)));
    }
    for (const OptionRow& row : AllOptions()) {
        EXPECT_THAT(command, HasSubstr("\\fB" + Roff(row.name) + "\\fR"));
        EXPECT_THAT(completions[0], HasWord(row.name));
        EXPECT_THAT(completions[1], HasSubstr(std::string(row.name)));
        EXPECT_THAT(completions[2], HasSubstr(" -l " + std::string(row.name.substr(2)) + " "));
    }
    for (const FormatRow& row : FormatTable()) {
        const std::size_t entry = formats.find("\n.SS " + std::string(row.name) + "\n");
        ASSERT_NE(entry, std::string::npos) << row.name;
        const std::string text = formats.substr(entry + 1, formats.find("\n.S", entry + 5) - entry);
        EXPECT_THAT(text, HasSubstr("\n.PP\n")) << "no page docs/formats/" << row.name << ".md";
        for (const std::string& each : completions)
            EXPECT_THAT(each, HasWord(row.name));
    }
}

// Text of a page is text alone: nothing in it is a request of the formatter.
TEST(HelpTest, APageIsTakenByItsHead) {
    const ScratchFolder folder;
    folder.Put("qzs.md",
               "# A `native` file\n\n| a | b |\n\n'Quoted' first,\n.dot and C:\\dir of [a link](x.md) with `--to`. "
               "Then\nmore.\n\n    code\n\nLast.\n\n## Not this\n\nNor this.\n");
    const std::string page = FormatsPage(folder / "", "2026-01-02");
    EXPECT_THAT(page, HasSubstr(".SS qzs\nA \\fBnative\\fR file.\n"));
    EXPECT_THAT(page,
                HasSubstr("\n.PP\n\\&'Quoted' first, .dot and C:\\edir of a link with \\fB\\-\\-to\\fR.\nThen more.\n"
                          ".PP\nLast.\n.SS ssy\n"));
}

TEST(HelpTest, TheExamplesRunOnTheSamples) {
    const ScratchFolder folder;
    std::filesystem::copy(ORVALE_ROOT "/samples", folder / "");
    std::size_t seen = 0;
    for (const VerbRow& row : AllVerbs()) {
        for (const Example& example : row.examples) {
            ASSERT_TRUE(example.line.starts_with("orvale "));
            const std::string words = std::string(example.line.substr(7));
            const Outcome outcome = RunOrvale(folder, words, "ORVALE_REGISTRY=reg");
            EXPECT_EQ(outcome.exitCode, 0) << words << '\n' << outcome.errors;
            ++seen;
        }
    }
    EXPECT_GT(seen, 5U);
}

TEST(HelpTest, TellsTheModuleInUse) {
    const ScratchFolder folder;
    folder.Put("Other.so", "no module: it isn't loaded");
    const std::string version = RunOrvale(folder, "--version").output;
    EXPECT_THAT(version, testing::MatchesRegex("orvale [0-9]+\\.[0-9]+\\.[0-9]+\nmodule: /.*/Orvale\\.so\n"));
    const std::string first = version.substr(0, version.find('\n') + 1);
    EXPECT_EQ(RunOrvale(folder, "--version --module Other.so").output,
              first + "module: " + (folder / "Other.so").string() + "\n");
    EXPECT_EQ(RunOrvale(folder, "--version --module=missing.so").output,
              first + "module: none at " + (folder / "missing.so").string() + "\n");
}

TEST(HelpTest, NamesTheNearestWord) {
    const std::vector<std::string_view> kWords{"formats", "info", "show", "log"};
    const struct {
        const char* word;
        const char* nearest;
    } kCases[] = {
        {"shwo", "show"},
        {"format", "formats"},
        {"lgo", "log"},
        {"fromats", "formats"},
        {"xyz", ""},
        {"convert", ""},
        {"", ""},
        {"shooooow", ""},
        {"x", ""},
        {"inf", "info"},
        {"SHOW", "show"},
        {"form", "formats"},
        {"nfio", "info"},
        {"fog", "log"},
        {"showshowshowshowshowshowshowshowshow", ""},
    };
    for (const auto& each : kCases)
        EXPECT_EQ(NearestWord(each.word, kWords), each.nearest) << each.word;
}

}  // namespace
}  // namespace orvale::test
