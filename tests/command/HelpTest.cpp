#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Program.h"
#include "command/formats/FormatTable.h"
#include "command/line/Completions.h"
#include "command/line/Manual.h"
#include "command/line/Options.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

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

}  // namespace
}  // namespace orvale::test
