#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "command/Program.h"

namespace orvale::test {
namespace {

using namespace std::string_literals;
using testing::HasSubstr;

class ColumnsTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words) { return RunOrvale(folder, words); }
    ScratchFolder folder;
};

const std::string kNobody = ", which nobody knows; --profile can tell its type, see orvale help show: ";

// What of a CSV file reaches no contact is told once, by all that read one; --strict takes none of it.
TEST_F(ColumnsTest, WhatReachesNoContactIsALoss) {
    const std::string bom = "\xEF\xBB\xBF";
    const std::string openQuotes = "values whose quotes don't close on their line, where they were cut off: ";
    const struct {
        const char* name;
        std::string file;
        std::string loss;  // empty for none
    } kCases[] = {
        {"all arrives", "Given Name , note\r\nAnn,\"a, \"\"b\"\"\"\r\n\r\n", ""},
        {"a blank behind the captions", "given name,note, \r\nAnn,x, \r\n", ""},
        {"surplus", "given name,note,\r\nAnn,1,\r\nBob,2,3,4, ,\"\",\"5\"\r\n",
         "values behind the last column: 3, first in line 3"},
        {"quotes never close", "given name,note,\r\n\"Ann\",\"first\r\nsecond\",\r\n\"Bob,b\r\n",
         openQuotes + "2, first in line 2"},
        {"unknown", "note,customer no\r\na,\r\nb,7\r\nc,8\r\n",
         "values of column 'customer no'" + kNobody + "2, first in line 3"},
        {"unknown without a value", "note,customer no,\r\na,,\r\nb,\"\",\r\nc,\" \"\r\n", ""},
        {"no caption", "note,,given name\r\na,x,Ann\r\nb,,\r\n",
         "values of a column without a caption: 1, first in line 2"},
        {"no caption, no value", "note,,given name\r\na,,Ann\r\n", ""},
        {"mark", bom + "given name,note\r\nAnn,x\r\n",
         "values of column '<U+FEFF>given name', which a byte order mark before its caption hides; take it out: 1, "
         "first in line 2"},
        {"LF", "given name,note\nAnn,1\nBob,2\n",
         "lines behind the captions that end in LF alone and not in CR LF: 2, first in line 2"},
        {"CR", "given name,note,\rAnn,1,\r",
         "lines behind the captions that end in CR alone and not in CR LF: 1, first in line 2"},
        {"LF in a value", "given name,note\r\nAnn,a\nb\r\n", ""},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.name);
        folder.Put("in.csv", each.file);
        const std::string told = each.loss.empty() ? "" : "orvale: in.csv: lost: " + each.loss + "\n";
        EXPECT_EQ(Run("show in.csv").errors, told);
        EXPECT_EQ(Run("info --json in.csv").errors, told);
        const Outcome strict = Run("convert --strict --force in.csv out.json");
        EXPECT_EQ(strict.exitCode, each.loss.empty() ? 0 : 3);
        if (each.loss.empty()) continue;
        const std::size_t place = each.loss.find("first in ");
        EXPECT_THAT(strict.errors, HasSubstr("orvale: out.json: lost: " + each.loss.substr(0, place) +
                                             "first in in.csv, " + each.loss.substr(place + 9) + "\n"));
    }
    folder.Put("in.csv", bom + "note\r\nx\r\n");
    EXPECT_THAT(Run("show --codepage 1252 in.csv").errors, HasSubstr("'ï»¿note', which a byte order mark"));
}

TEST_F(ColumnsTest, ManyUnknownColumnsAreFewLines) {
    std::string captions;
    for (int i = 0; i < 300; ++i)
        captions += "c" + std::to_string(i) + ",";
    std::string values;
    for (int i = 0; i < 300; ++i)
        values += "v,";
    folder.Put("in.csv", captions + "\r\n" + values + "\r\n");
    const std::string errors = Run("show in.csv").errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 41);
    EXPECT_THAT(errors, HasSubstr("lost: 260 more kinds of values\n"));
}

TEST_F(ColumnsTest, WhatTheReaderOfSsyLeavesOutIsALoss) {
    const struct {
        const char* name;
        std::string records;  // each ends in a zero
        std::string losses;
    } kCases[] = {
        {"all arrives", "A&44B,Lee,,,,3,5&445,2,66,9,:e,u\0"s, ""},
        {"items", "Ann,,,,,:\0A&44B&45,Lee,drop1,drop2,,3,5&445,3,66,...:e&44m,u&45rl,more,items\0"s,
         "orvale: out.json: lost: items that no field takes: 4, first in in.ssy, record 2\n"
         "orvale: out.json: lost: values replaced by a later one of their type: 1, first in in.ssy, record 2\n"},
        {"replaced by the same", "Ann,,,,,9,1,9,1,20,Ann:\0"s, ""},
        {"number nobody knows", "Ann,,,,,17,1,18,2:\0"s,
         "orvale: out.json: lost: values replaced by a later one of their type: 1, first in in.ssy, record 1\n"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.name);
        ASSERT_EQ(each.records.back(), '\0');
        std::string file(54, '\0');
        file[50] = static_cast<char>(each.records.size());
        folder.Put("in.ssy", file + each.records);
        const Outcome outcome = Run("convert --strict --force in.ssy out.json");
        EXPECT_EQ(outcome.exitCode, each.losses.empty() ? 0 : 3);
        EXPECT_THAT(outcome.errors, testing::StartsWith(each.losses));
    }
}

}  // namespace
}  // namespace orvale::test
