#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "command/Program.h"
#include "command/formats/FormatTable.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

// A build without a library knows the files of its format, and tells what it lacks for them.
TEST(AbsentFormatsTest, AFormatWithoutItsLibraryTellsWhatItLacks) {
    const std::map<std::string_view, std::string> kFiles{
        {"ics", "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n"},
        {"mbox", "From a Mon Mar 17 06:02:11 2008\nSubject: x\n\n"},
    };
    const ScratchFolder folder;
    std::size_t lacking = 0;
    for (const FormatRow& row : FormatTable()) {
        if (row.lacks.empty()) continue;
        ++lacking;
        const std::string name(row.name);
        const std::string lack = "needs " + std::string(row.lacks) + ", which this build goes without\n";
        folder.Put("in.txt", kFiles.at(row.name));
        folder.Put("in.json", R"({"orvale": 1, "kind": ")" + std::string(KindWord(*row.kind)) + R"(", "records": []})");
        const Outcome info = RunOrvale(folder, "info in.txt");
        EXPECT_EQ(info.errors, "orvale: in.txt: the format " + name + " " + lack);
        EXPECT_EQ(info.exitCode, 1);
        for (const std::string& words : {"show --format " + name + " in.txt", "convert in.json out." + name}) {
            const Outcome outcome = RunOrvale(folder, words);
            EXPECT_EQ(outcome.exitCode, 2) << words;
            EXPECT_THAT(outcome.errors, HasSubstr("the format " + name + " " + lack.substr(0, lack.size() - 1)));
        }
        EXPECT_THAT(RunOrvale(folder, "formats").output, HasSubstr(lack));
    }
    EXPECT_NE(lacking, 0U);
}

}  // namespace
}  // namespace orvale::test
