#include <gtest/gtest.h>

#include "command/Program.h"
#include "command/show/Screen.h"

namespace orvale::test {
namespace {

TEST(ShowTest, ControlCharactersAreMadeVisible) {
    const struct {
        std::u16string_view text;
        const char* shown;
    } kCases[] = {
        {u"plain é 山 😀", "plain é 山 😀"}, {u"\x1B[2J", "^[[2J"},         {u"a\tb", "a b"},
        {u"\x7F\x9B", "<U+007F><U+009B>"}, {u"\x202Egnp", "<U+202E>gnp"}, {u"a\nb", "a^Jb"},
        {u"\xD800", "\xEF\xBF\xBD"},
    };
    for (const auto& each : kCases)
        EXPECT_EQ(Visible(each.text), each.shown);
}

TEST(ShowTest, TextFitsItsColumnsByWhatATerminalShows) {
    const struct {
        std::u16string_view text;
        const char* fitted;
    } kCases[] = {
        {u"abc", "abc   "},  {u"abcdef", "abcdef"},   {u"abcdefg", "abcde…"},
        {u"山田", "山田  "}, {u"山田太郎", "山田… "}, {u"e\x301x", "e\u0301x    "},
    };
    for (const auto& each : kCases)
        EXPECT_EQ(Screen::Fit(each.text, 6), each.fitted);
}

TEST(ShowTest, AContactIsABlock) {
    const ScratchFolder folder;
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [
        {"storage": 2, "fields": [
            {"type": 1, "data": "Ann", "groups": [{"id": 1, "name": "Work"}, {"id": 2, "name": ""}]},
            {"type": 2, "data": "Lee"}, {"type": 4711, "data": "x", "extraNumber": 5, "extraText": "y"},
            {"type": 3002, "data": "first\r\nsecond\u001b[31m"}]},
        {}]})");
    const std::string expected =
        "Ann Lee  [Work, group 2]\n"
        "  storage                 2\n"
        "  given name              Ann\n"
        "  family name             Lee\n"
        "  type 4711               x\n"
        "                          (5 y)\n"
        "  note                    first\n"
        "                          second^[[31m\n"
        "\n"
        "(no name)\n"
        "\n"
        "2 contacts\n";
    EXPECT_EQ(RunOrvale(folder, "show in.json").output, expected);
    const std::string coloured = RunOrvale(folder, "show --color=always in.json").output;
    EXPECT_EQ(coloured.substr(0, 15), "\033[1mAnn Lee\033[0m");
}

}  // namespace
}  // namespace orvale::test
