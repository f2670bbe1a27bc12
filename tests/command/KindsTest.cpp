#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Program.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
namespace fs = std::filesystem;

// A record with every field set to a value of its own, in the order in which `show --json` prints it.
constexpr char kCalendar[] = R"({"orvale": 1, "kind": "calendar", "profile": null, "records": [{"itemType": 1,
    "itemTypeName": "PHONE_TODO_TYPE", "fields": [{"type": 3000, "typeName": "CAL_FIELD_DESCRIPTION",
    "data": "Frühstück 山田", "number": -2}, {"type": 99, "data": ""}], "dtstart": "2010-07-26T06:00:00",
    "dtend": 40385.3125001, "ringid": 3, "ring": "Bells", "vibration": 4, "secret": 5, "duration": 6,
    "recurtype": 2, "recurtypeName": "RECURS_WEEKLY", "recurday": 8, "recurmonth": 9, "recurinstance": 10,
    "recurweekday": 11, "recurweekmask": 12, "recurinterval": 13, "recurrepeat": 14, "recurenddate": "nan",
    "recurhasenddate": -15, "remindermin": 16, "priority": 2, "priorityName": "CAL_TASK_PRIORITY_HIGH",
    "complete": 17, "reserve1": 18, "reserve2": 19, "category": 14, "categoryName": "CATE_BIRTHDAY"}]})";

constexpr char kSms[] = R"({"orvale": 1, "kind": "sms", "profile": null, "records": [{"storageid": 1, "status": -2,
    "listtype": 3, "phonenumber": "+49 170", "content": "Hallo\r\n😀", "time": "2010-07-26 06:00:15", "name": "Ann", "smstype": 0}]})";

constexpr char kEmail[] = R"({"orvale": 1, "kind": "email", "profile": null, "records": [{"type": 53,
    "typeName": "EMAILBOX_CUSTOM3", "box": "In", "device": 2, "deviceName": "DEVL_SIMCARD", "status": 65537, "account": "<id>1</id>",
    "folder": "Old", "from": "a@b", "to": "c@d", "cc": "e@f", "bcc": "g@h", "subject": "Grüße", "body": "Text",
    "received": "2010-07-26T06:00:15", "sent": null, "accessory": ["a.jpg", ""], "importance": 3,
    "importanceName": "EMAIL_IMPORTANCE_HIGH", "symbol": 7, "symbolName": "EMAIL_SYMBOL_PURPLE", "sensitivity": 4,
    "sensitivityName": "EMAIL_SENSITIVTY_CONFIDENTIAL", "entryid": "id-1"}]})";

class KindsTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words, const std::string& before = "") { return RunOrvale(folder, words, before); }

    ScratchFolder folder;
};

TEST_F(KindsTest, EveryFieldGoesThroughTheNativeFileUnchanged) {
    const struct {
        const char* extension;
        const char* document;
    } kCases[] = {{"cal", kCalendar}, {"sms", kSms}, {"eml", kEmail}};
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.extension);
        folder.Put("in.json", each.document);
        const std::string native = std::string("a.") + each.extension;
        EXPECT_EQ(Run("convert --strict in.json " + native).errors, "");
        EXPECT_EQ(Flat(Run("show --json " + native).output), Flat(each.document));
        EXPECT_THAT(Run("info --json " + native).output, HasSubstr("\"records\": 1,\n  \"truncated\": false"));
    }
}

TEST_F(KindsTest, TellsWhatTheFormatHasNoPlaceFor) {
    std::string sms = kSms;
    sms.replace(sms.find("\"smstype\": 0"), 12, "\"smstype\": 7");
    folder.Put("sms.json", sms);
    EXPECT_EQ(Run("convert sms.json a.sms").errors,
              "orvale: a.sms: lost: type of the message: 1, first in message 1\n");
    folder.Put("cal.json", kCalendar);
    const Outcome out = Run("convert cal.json a.vcs");
    EXPECT_EQ(out.exitCode, 0);
    for (const char* line : {"lost: text of type 99: 1", "lost: number of a text: 1", "lost: recurrence: 1",
                             "lost: category: 1", "changed: event or todo: 1", "changed: end: 1"})
        EXPECT_THAT(out.errors, HasSubstr(line));
    EXPECT_EQ(Run("convert --strict --force cal.json a.vcs").exitCode, 3);
}

// That reader gives a cut message as if it were whole, wherever the cut is.
TEST_F(KindsTest, ACutMessageIsNeitherCountedNorShown) {
    folder.Put("in.json", kSms);
    ASSERT_EQ(Run("convert in.json in.json a.sms").exitCode, 0);
    const std::string whole = folder.Get("a.sms");
    const std::size_t size = (whole.size() - 14) / 2;
    for (const std::size_t cut :
         {std::size_t{1}, std::size_t{2}, std::size_t{20}, std::size_t{38}, size - 12, size - 3}) {
        SCOPED_TRACE(cut);
        folder.Put("cut.sms", whole.substr(0, whole.size() - cut));
        const Outcome outcome = Run("info --json cut.sms");
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.output, HasSubstr("\"records\": 1,\n  \"truncated\": true"));
        EXPECT_THAT(outcome.errors,
                    HasSubstr("cut.sms: record 2, byte " + std::to_string(14 + size) + ": damaged from here on"));
    }
    EXPECT_EQ(Run("info a.sms").exitCode, 0);
}

TEST_F(KindsTest, SeveralCalendarEntriesGoToANewFolder) {
    std::string records;
    for (int i = 1; i <= 12; ++i) {
        records += (i == 1 ? "" : ",") + std::string(R"({"itemType": 0, "fields": [{"type": 3000, "data": "entry )") +
                   std::to_string(i) + "\"}]}";
    }
    folder.Put("in.json", R"({"orvale": 1, "kind": "calendar", "records": [)" + records + "]}");
    EXPECT_EQ(Run("convert --strict --to vcalendar in.json out").exitCode, 0);
    EXPECT_TRUE(fs::exists(folder / "out/00001.vcs") && fs::exists(folder / "out/00012.vcs"));
    EXPECT_FALSE(fs::exists(folder / "out/00013.vcs"));
    fs::rename(folder / "out/00002.vcs", folder / "out/2.vcs");
    fs::rename(folder / "out/00012.vcs", folder / "out/12.vcs");
    folder.Put("out/note.txt", "nothing of ours");

    const Outcome back = Run("convert --strict out a.cal");
    EXPECT_EQ(back.exitCode, 0);
    EXPECT_EQ(back.errors, "orvale: out/note.txt: passed over, for it is no file of the format vcalendar\n");
    const std::string shown = Run("show a.cal").output;
    EXPECT_LT(shown.find("entry 2\n"), shown.find("entry 12\n"));
    EXPECT_LT(shown.find("entry 12\n"), shown.size());
    EXPECT_THAT(Run("info --json out").output, StartsWith("[\n  {\n    \"file\": \"out/00001.vcs\""));

    EXPECT_THAT(Run("convert --force --to vcalendar in.json out").errors, HasSubstr("out: is a folder"));
    folder.Put("file.vcs", "old");
    EXPECT_EQ(Run("convert --force in.json file.vcs").exitCode, 1);
    EXPECT_EQ(folder.Get("file.vcs"), "old");
    for (const fs::directory_entry& entry : fs::directory_iterator(folder / ""))
        EXPECT_FALSE(entry.path().filename().string().starts_with(".orvale-")) << entry.path();
}

TEST_F(KindsTest, AVCalendarWithoutAnEntryIsAFailure) {
    folder.Put("none.vcs", "BEGIN:VCALENDAR\r\nPRODID:\r\nVERSION:2.0\r\nEND:VCALENDAR\r\n");
    folder.Put("none.json", R"({"orvale": 1, "kind": "calendar", "records": []})");
    EXPECT_EQ(Run("show --format vcalendar none.vcs").errors,
              "orvale: none.vcs: holds no record of the format vcalendar\n");
    EXPECT_EQ(Run("info --format vcalendar none.vcs").exitCode, 1);
    EXPECT_EQ(Run("convert --from vcalendar none.vcs a.cal").exitCode, 1);
    EXPECT_EQ(Run("convert none.json a.vcs").exitCode, 1);
    EXPECT_EQ(Run("convert none.json a.cal").exitCode, 0);
}

TEST_F(KindsTest, ADateOfVCalendarGoesThroughTheZone) {
    folder.Put("in.vcs",
               "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nDTSTART:20100726T060015Z\r\nDTEND:2010\r\nEND:"
               "VEVENT\r\nEND:VCALENDAR\r\n");
    const std::string shown = Run("show --json in.vcs", "TZ=Europe/Berlin").output;
    EXPECT_THAT(shown, HasSubstr("\"dtstart\": \"2010-07-26T08:00:15\""));
    EXPECT_THAT(shown, HasSubstr("\"operation\": 4"));
    EXPECT_EQ(Run("convert in.vcs a.cal").errors,
              "orvale: a.cal: lost: mark of a date that could not be read: 1, first in calendar entry 1\n");
}

TEST_F(KindsTest, NothingOfAVCalendarGoesInSilence) {
    folder.Put("in.vcs",
               "BEGIN:VCALENDAR\r\nPRODID:x\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\n"
               "SUMMARY;ENCODING=QUOTED-PRINTABLE:a=\r\nb\r\nRRULE:D1\r\nLOCATION;ENCODING=QUOTED-PRINTABLE:"
               "\xFF\r\nEND:VEVENT\r\n"
               "BEGIN:VTODO\r\nEND:VTODO\r\nEND:VCALENDAR\r\n");
    EXPECT_EQ(Run("convert --from vcalendar in.vcs a.cal").errors,
              "orvale: a.cal: lost: bytes that code page 65001 doesn't have: 1, first in in.vcs, line 8\n"
              "orvale: a.cal: lost: entries behind the first, which became one with it: 1, first in in.vcs, line 10\n"
              "orvale: a.cal: lost: lines with an unknown key, which joined the value before them: 1, first in in.vcs, "
              "line 7\n");
}

TEST_F(KindsTest, AnAgendaByDay) {
    folder.Put("in.json", R"({"orvale": 1, "kind": "calendar", "records": [
        {"itemType": 0, "fields": [{"type": 3000, "data": "Later"}], "dtstart": "2010-07-27T10:00:00", "dtend": "2010-07-28T10:00:00",
         "recurtype": 2, "recurweekmask": 62, "recurinterval": 0, "recurrepeat": 5},
        {"fields": [], "dtstart": 1e300},
        {"itemType": 0, "fields": [{"type": 3000, "data": "First\nline"}, {"type": 3003, "data": "Café"}], "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T07:30:00",
         "recurtype": 4, "recurinstance": 1, "recurmonth": 7, "recurweekmask": 2, "remindermin": 15, "secret": 1},
        {"itemType": 1, "fields": [{"type": 3000, "data": "Todo"}], "complete": 1}]})");
    EXPECT_EQ(Run("show in.json").output,
              "Monday, 26 July 2010\n"
              "  06:00-07:30  First\n"
              "               line\n"
              "  location                Café\n"
              "  repeats                 every year on Monday in July\n"
              "  alarm                   15 minutes before\n"
              "  secret                  yes\n"
              "\n"
              "Tuesday, 27 July 2010\n"
              "  10:00        Later\n"
              "  ends                    2010-07-28 10:00\n"
              "  repeats                 every workday, 5 times\n"
              "\n"
              "Out of range: 1.0000000000000001e+300\n"
              "               (no description)\n"
              "\n"
              "No date\n"
              "               [x] Todo\n"
              "\n"
              "4 calendar entries\n");
}

TEST_F(KindsTest, MessagesAreAListAndEmailsAreBlocks) {
    folder.Put("sms.json", kSms);
    EXPECT_EQ(
        Run("show sms.json").output,
        "2010-07-26 06:00:15  draft       Ann <+49 170>  status -2  phone memory\n    Hallo\n    😀\n\n1 message\n");
    folder.Put("eml.json", kEmail);
    EXPECT_EQ(Run("show eml.json").output,
              "Grüße\n"
              "  from                    a@b\n"
              "  to                      c@d\n"
              "  cc                      e@f\n"
              "  bcc                     g@h\n"
              "  received                2010-07-26 06:00:15\n"
              "  box                     In, custom box 3, Old\n"
              "  status                  read, not deleted\n"
              "  storage                 SIM card\n"
              "  account                 <id>1</id>\n"
              "  importance              high\n"
              "  flag                    purple\n"
              "  sensitivity             confidential\n"
              "  attachments             a.jpg, \n"
              "  identifier              id-1\n"
              "\n"
              "    Text\n"
              "\n"
              "1 email\n");
}

}  // namespace
}  // namespace orvale::test
