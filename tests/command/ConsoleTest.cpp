#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

#include "command/console/CommandError.h"
#include "command/console/EditDistance.h"
#include "command/console/Progress.h"
#include "command/console/Screen.h"
#include "support/Child.h"

namespace orvale::test {
namespace {

TEST(ConsoleTest, ControlCharactersAreMadeVisible) {
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

TEST(ConsoleTest, TextFitsItsColumnsByWhatATerminalShows) {
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

TEST(ConsoleTest, NamesTheNearestWord) {
    const std::vector<std::string_view> kWords{"formats", "info", "show", "log"};
    const struct {
        const char* word;
        const char* nearest;
    } kCases[] = {
        {"shwo", "show"},
        {"lgo", "log"},
        {"fromats", "formats"},
        {"xyz", ""},
        {"", ""},
        {"x", ""},
        {"inf", "info"},
        {"SHOW", "show"},
        {"nfio", "info"},
        {"fog", "log"},
        {"convert", ""},
        {"form", "formats"},
        {"shooooow", ""},
        {"showshowshowshowshowshowshowshowshow", ""},
    };
    for (const auto& each : kCases)
        EXPECT_EQ(NearestWord(each.word, kWords), each.nearest) << each.word;
}

// What a body writes to standard error when that is a terminal.
std::string OnATerminal(void (*body)()) {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        body();
        EndChild(0);
    }
    std::string seen;
    char bytes[4096];
    for (ssize_t got = 0; (got = read(terminal, bytes, sizeof bytes)) > 0;)
        seen.append(bytes, static_cast<std::size_t>(got));
    close(terminal);
    waitpid(child, nullptr, 0);
    return seen;
}

TEST(ConsoleTest, LongWorkIsToldOnATerminalInOneLineThatGoes) {
    const std::string seen = OnATerminal([] {
        Progress progress("checking", "a\x1B.qzs");
        progress.Tick(256);
        std::this_thread::sleep_for(std::chrono::milliseconds(550));
        progress.Tick(300);
        progress.Tick(512);
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        progress.Tick(768, 1024);
        TellUser("a line");
    });
    EXPECT_EQ(seen,
              "\r\x1B[Kchecking a^[.qzs: 512 records"
              "\r\x1B[Kchecking a^[.qzs: 75 %"
              "\r\x1B[Korvale: a line\r\n");
}

}  // namespace
}  // namespace orvale::test
