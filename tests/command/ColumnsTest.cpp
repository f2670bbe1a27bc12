#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "command/Program.h"
#include "command/line/Manual.h"
#include "records/ContactFieldTypes.h"

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

TEST_F(ColumnsTest, FailuresTellTheirReason) {
    const std::string captions(1025, 'c');
    folder.Put("caption.csv", "note," + captions + "\r\n");
    folder.Put("line.csv", captions + "," + captions + "\r\n");
    folder.Put("lf.csv", "note\n" + std::string(2050, 'x') + "\n");
    folder.Put("blank.csv", "\r\nx\r\n");
    folder.Put("none.csv", "");
    folder.Put("none.json", R"({"columns": []})");
    folder.Put("wide.json", R"({"columns": [{"caption": ")" + captions + R"(", "type": 5}, {"caption": ")" + captions +
                                R"(", "type": 104}]})");
    const auto contacts = [](const std::string& value) {
        return R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [{"type": 5, "data": ")" + value + "\"}]}]}";
    };
    folder.Put("ann.json", contacts("Ann"));
    folder.Put("long.json", contacts(std::string(2100, 'x')));
    const struct {
        const char* words;
        const char* line;
    } kCases[] = {
        {"show caption.csv", "caption.csv: its header can't be read: caption 2 is longer than 1024 characters"},
        {"show line.csv",
         "line.csv: its header can't be read (VERIFY_NOT_READ_HEADER): the line of captions is longer "
         "than 2047 bytes"},
        {"info lf.csv",
         "lf.csv: its header can't be read (VERIFY_NOT_READ_HEADER): the line of captions is longer "
         "than 2047 bytes; its lines end in LF alone and not in CR LF"},
        {"convert blank.csv a.qzs",
         "blank.csv: its header can't be read (VERIFY_NOT_READ_HEADER): its first line "
         "holds no captions"},
        {"show none.csv", "none.csv: its header can't be read (VERIFY_NOT_READ_HEADER): the file is empty"},
        {"convert --profile none.json ann.json a.csv", "none.json: columns: a file of columns has at least one"},
        {"convert --profile wide.json ann.json a.csv",
         "a.csv: its header can't be read (VERIFY_NOT_READ_HEADER): the line of captions is longer than 2047 bytes"},
        {"convert long.json a.csv",
         "a.csv: record 1: was written and can't be read back; the format takes lines of at most 2047 bytes"},
        {"convert long.json a.qzs",
         "a.qzs: record 1: was written and can't be read back; the format takes texts of at "
         "most 1023 units without a zero among them"},
    };
    for (const auto& each : kCases) {
        const Outcome outcome = Run(each.words);
        EXPECT_EQ(outcome.exitCode, 1) << each.words;
        EXPECT_EQ(outcome.errors, "orvale: " + std::string(each.line) + "\n") << each.words;
    }
}

TEST_F(ColumnsTest, ThePagesListEveryCaption) {
    std::ifstream in(ORVALE_ROOT "/docs/formats/csv.md");
    const std::string page{std::istreambuf_iterator<char>(in), {}};
    const std::size_t start = page.find("| Caption | Type |");
    ASSERT_NE(start, std::string::npos);
    const std::string table = page.substr(start, page.find("\n\n", start) - start);
    std::map<std::string, std::string> listed;
    // Cells of a caption and of its type stand side by side, several pairs a row.
    std::istringstream cells(table);
    std::string caption;
    for (std::string cell; std::getline(cells, cell, '|'); caption = cell) {
        cell = cell.size() > 2 ? cell.substr(1, cell.size() - 2) : "";
        if (!cell.empty() && cell.find_first_not_of("0123456789") == std::string::npos) listed[caption] = cell;
    }
    std::map<std::string, std::string> known;
    for (const ContactFieldType& type : kContactFieldTypes)
        known[std::string(type.caption)] = std::to_string(type.id);
    EXPECT_EQ(listed, known);
    EXPECT_THAT(FormatsPage(ORVALE_ROOT "/docs/formats", "2026-01-02"), HasSubstr("(4035)."));  // the last one
}

}  // namespace
}  // namespace orvale::test
