#include <gtest/gtest.h>

#include <algorithm>

#include "command/Program.h"
#include "command/console/Screen.h"

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
    EXPECT_EQ(RunOrvale(folder, "show --color=never in.json").output, expected);
    EXPECT_EQ(RunOrvale(folder, "show --profile-only in.json").output, "no profile\n");
    folder.Put("in.json", R"({"orvale": 1, "kind": "sms", "records": [{"content": "\u009b\u202e é"}]})");
    EXPECT_NE(RunOrvale(folder, "show --json in.json").output.find(R"("\u009b\u202e é")"), std::string::npos);
}

TEST(ShowTest, ATableForSpreadsheets) {
    const ScratchFolder folder;
    const struct {
        const char* document;
        const char* table;
        const char* safeTable;  // where it differs
    } kCases[] = {
        {R"({"orvale": 1, "kind": "contacts", "records": [
             {"fields": [{"type": 5, "data": "Ann \"A\", Lee", "groups": [{"id": 1, "name": "Work"}, {"id": 2, "name": ""}]},
                         {"type": 104, "data": "+49"}, {"type": 104, "data": "=1+1"}, {"type": 4711, "data": "a\r\nb"}]},
             {"storage": 2, "fields": [{"type": 3002, "data": "é", "extraNumber": 5, "extraText": "y"}]}]})",
         "storage,full name,mobile phone,mobile phone (2),note,type 4711,groups,extras\r\n"
         "0,\"Ann \"\"A\"\", Lee\",+49,=1+1,,\"a\r\nb\",Work; group 2,\r\n2,,,,é,,,note: 5 y\r\n",
         "storage,full name,mobile phone,mobile phone (2),note,type 4711,groups,extras\r\n"
         "0,\"Ann \"\"A\"\", Lee\",'+49,'=1+1,,\"a\r\nb\",Work; group 2,\r\n2,,,,é,,,note: 5 y\r\n"},
        {R"({"orvale": 1, "kind": "sms", "records": [{"listtype": 3, "name": "-x", "content": "@y", "time": "＝1"}]})",
         "storageid,status,listtype,phonenumber,content,time,name,smstype\r\n0,0,3,,@y,＝1,-x,0\r\n",
         "storageid,status,listtype,phonenumber,content,time,name,smstype\r\n0,0,3,,'@y,'＝1,'-x,0\r\n"},
        {R"({"orvale": 1, "kind": "sms", "records": [{"phonenumber": "＋1", "content": "－2", "time": "＠3"}]})",
         "storageid,status,listtype,phonenumber,content,time,name,smstype\r\n0,0,0,＋1,－2,＠3,,0\r\n",
         "storageid,status,listtype,phonenumber,content,time,name,smstype\r\n0,0,0,'＋1,'－2,'＠3,,0\r\n"},
        {R"({"orvale": 1, "kind": "contacts", "records": []})", "storage\r\n", "storage\r\n"},
        {R"({"orvale": 1, "kind": "email", "records": [{"from": "a@b", "accessory": ["a.jpg", "=b"]}]})",
         "type,box,device,status,account,folder,from,to,cc,bcc,subject,body,received,sent,accessory,importance,symbol,"
         "sensitivity,entryid\r\n0,,0,0,,,a@b,,,,,,,,a.jpg; =b,EMAIL_IMPORTANCE_NONE,EMAIL_SYMBOL_NONE,"
         "EMAIL_SENSITIVTY_NONE,\r\n",
         "type,box,device,status,account,folder,from,to,cc,bcc,subject,body,received,sent,accessory,importance,symbol,"
         "sensitivity,entryid\r\n0,,0,0,,,a@b,,,,,,,,a.jpg; =b,EMAIL_IMPORTANCE_NONE,EMAIL_SYMBOL_NONE,"
         "EMAIL_SENSITIVTY_NONE,\r\n"},
    };
    for (const auto& each : kCases) {
        folder.Put("in.json", each.document);
        EXPECT_EQ(RunOrvale(folder, "show --csv in.json").output, each.table);
        EXPECT_EQ(RunOrvale(folder, "show --safe-csv in.json").output, each.safeTable);
    }
    folder.Put("in.json",
               R"({"orvale": 1, "kind": "calendar", "records": [{"itemType": 1, "dtstart": "2010-07-26T06:00:00",
        "fields": [{"type": 3000, "data": "x"}, {"type": 3000, "data": "y"}]}, {"dtstart": 1e300}]})");
    const std::string calendar = RunOrvale(folder, "show --csv in.json").output;
    EXPECT_EQ(calendar.substr(0, 23), "itemType,dtstart,dtend,");
    EXPECT_NE(calendar.find(",description,description (2)\r\nPHONE_TODO_TYPE,2010-07-26 06:00:00,,"),
              std::string::npos);
    EXPECT_NE(calendar.find("\r\n-1,1.0000000000000001e+300,,"), std::string::npos);
    EXPECT_EQ(RunOrvale(folder, "show --csv --json in.json").exitCode, 2);

    // A contact of many values widens the table no further than its bounds.
    std::string many;
    for (int i = 0; i < 3000; ++i)
        many += (i == 0 ? "" : ",") + std::string("{\"type\": ") + std::to_string(i % 1500) + ", \"data\": \"v\"}";
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [)" + many + "]}]}");
    const std::string wide = RunOrvale(folder, "show --csv in.json").output;
    const std::string head = wide.substr(0, wide.find('\r'));
    EXPECT_EQ(std::count(head.begin(), head.end(), ','), 1001);  // storage, 500 types twice, the others
}

}  // namespace
}  // namespace orvale::test
