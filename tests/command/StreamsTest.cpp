#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "command/Program.h"
#include "command/console/CommandError.h"
#include "command/console/Progress.h"
#include "support/Child.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kAnn[] = R"({"orvale": 1, "kind": "contacts", "records": [
    {"storage": 0, "fields": [{"type": 5, "data": "Ann", "groups": [{"id": 1, "name": "Friends"}]}]}]})";

class StreamsTest : public testing::Test {
 protected:
    StreamsTest() {
        folder.Put("ann.json", kAnn);
        std::filesystem::create_directory(folder / "spool");
    }

    // With a folder of its own for temporary files, which is empty again whatever happened.
    Outcome Run(const std::string& words) {
        const Outcome outcome = RunOrvale(folder, words, "TMPDIR=spool");
        EXPECT_TRUE(std::filesystem::is_empty(folder / "spool")) << words;
        return outcome;
    }

    // What a script of bash prints that knows the command as $ORVALE.
    std::string RunScript(const std::string& script) {
        folder.Put("script", script);
        const Outcome outcome =
            RunOrvale(folder, "formats >/dev/null; ORVALE='" ORVALE_COMMAND "' bash script", "export TMPDIR=spool;");
        EXPECT_TRUE(std::filesystem::is_empty(folder / "spool")) << script;
        return outcome.output;
    }

    ScratchFolder folder;
};

TEST_F(StreamsTest, AnythingIsReadFromStandardInputAndWrittenToStandardOutput) {
    const Outcome native = Run("convert --from json --to qzs - - <ann.json");
    ASSERT_EQ(native.exitCode, 0) << native.errors;
    EXPECT_EQ(native.errors, "");
    folder.Put("ann.qzs", native.output);
    EXPECT_THAT(Run("info --format qzs - <ann.qzs").output, HasSubstr("standard input: qzs (contacts)"));
    EXPECT_THAT(Run("show --format qzs - <ann.qzs").output, HasSubstr("Friends"));
    EXPECT_EQ(Run("show --json ann.qzs").output, Run("convert --to json ann.qzs -").output);
    // Between files, in its place.
    EXPECT_EQ(Run("convert ann.qzs - ann.json two.csv --from json <ann.json").exitCode, 1);
    EXPECT_EQ(Run("convert ann.json - three.qzs --from json <ann.json").exitCode, 0);
    EXPECT_THAT(Run("info three.qzs").output, HasSubstr("2 records"));
}

TEST_F(StreamsTest, WhatGoesWrongWithAStreamIsToldAsOfAFile) {
    folder.Put("cut.vcf", "BEGIN:VCARD\r\nVERSION:2.1\r\nN:A\r\nEND:VCARD\r\nBEGIN:VCARD\r\nVERSION:2.1\r\nN:B\r\n");
    const struct {
        const char* words;
        int exitCode;
        const char* line;
    } kCases[] = {
        {"show - <ann.json", 2, "nothing tells the format of standard input"},
        {"convert - - new.qzs --from json <ann.json", 2, "standard input can be read only once"},
        {"convert ann.json -", 2, "nothing tells its format; --to names one"},
        {"convert --from qzs - new.vcf <ann.json", 1, "standard input: record 1, byte 24: damaged from here on"},
        {"show --format qzs - <&-", 1, "standard input: "},
        {"convert --from vcard - new.qzs <cut.vcf", 1, "standard input: record 2, byte 42: damaged from here on"},
        {"convert --to vcard ann.json -", 0, "standard output: lost: groups: 1, first in contact 1"},
        {"convert --strict --to vcard ann.json -", 3, "standard output: not written, for --strict takes no loss"},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.words);
        const Outcome outcome = Run(test.words);
        EXPECT_EQ(outcome.exitCode, test.exitCode) << outcome.errors;
        EXPECT_THAT(outcome.errors, HasSubstr(test.line));
        if (test.exitCode != 0) {
            EXPECT_THAT(outcome.output, IsEmpty());
        }
    }
    EXPECT_EQ(Run("diff --format json - - <ann.json").exitCode, 2);
    EXPECT_THAT(RunOrvale(folder, "convert --to json ann.json -", "TMPDIR=missing").errors,
                HasSubstr("standard output: temporary file: No such file or directory"));
}

// Who reads the output, or what is told, may go away at any moment.
TEST_F(StreamsTest, AReaderWhoGoesAwayLeavesNothingBehind) {
    std::string many = R"({"orvale": 1, "kind": "contacts", "records": [)";
    for (int i = 0; i < 5000; ++i)
        many += R"({"fields": [{"type": 5, "data": "A contact with a name of some length"}]},)";
    folder.Put("many.json", many.substr(0, many.size() - 1) + "]}");
    constexpr const char* kBrokenPipe = "141\n";  // as every program that ends by that signal
    for (const char* const words : {"show many.json", "show --json --format json - <many.json",
                                    "convert --to csv many.json -", "convert --from json --to json - - <many.json"})
        EXPECT_EQ(RunScript("$ORVALE " + std::string(words) + " | head -c 1 >/dev/null; echo ${PIPESTATUS[0]}"),
                  kBrokenPipe)
            << words;
    // What is told of losses goes nowhere; the work is done all the same.
    EXPECT_EQ(RunScript("{ sleep 0.3; $ORVALE convert ann.json a.vcf; echo $? >code; } 2>&1 | true; cat code"), "0\n");
    EXPECT_EQ(Run("convert ann.json b.vcf 2>&-").exitCode, 0);
    EXPECT_EQ(Run("info a.vcf b.vcf").exitCode, 0);
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

TEST(ProgressTest, LongWorkIsToldOnATerminalInOneLineThatGoes) {
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
