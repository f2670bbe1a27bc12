#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "command/Limits.h"
#include "command/Program.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

class IcsTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words, const std::string& before = "TZ=Europe/Berlin") {
        return RunOrvale(folder, words, before);
    }

    // A calendar of the lines given, as other programs end them.
    void PutCalendar(const std::string& lines) {
        std::string text = "BEGIN:VCALENDAR\nVERSION:2.0\n" + lines + "END:VCALENDAR\n";
        for (std::size_t i = 0; (i = text.find('\n', i)) != std::string::npos; i += 2)
            text.replace(i, 1, "\r\n");
        folder.Put("in.ics", text);
    }

    ScratchFolder folder;
};

// Entries as a phone may hold them: each combination of a recurrence, each kind of value, and numbers that are no
// combination at all. All come back, to the last bit.
TEST_F(IcsTest, WhatAPhoneHoldsComesBack) {
    const char* const kRecurrences[] = {
        R"("recurtype": 0)",
        R"("recurtype": 1)",
        R"("recurtype": 1, "recurinterval": 3, "recurrepeat": 7)",
        R"("recurtype": 1, "recurrepeat": 1000000000)",
        R"("recurtype": 2, "recurweekmask": 62, "recurinterval": 0)",
        R"("recurtype": 2, "recurweekmask": 62)",
        R"("recurtype": 2, "recurweekmask": 2)",
        R"("recurtype": 2, "recurweekmask": 73, "recurinterval": 2)",
        R"("recurtype": 2, "recurweekmask": 0)",
        R"("recurtype": 3, "recurday": 26)",
        R"("recurtype": 3, "recurday": 31, "recurhasenddate": 1, "recurenddate": "2012-12-31T00:00:00")",
        R"("recurtype": 3, "recurweekmask": 2, "recurinstance": 1)",
        R"("recurtype": 4, "recurday": 26, "recurmonth": 7)",
        R"("recurtype": 4, "recurday": 29, "recurmonth": 2)",
        R"("recurtype": 4, "recurweekmask": 2, "recurmonth": 7, "recurinstance": 1)",
        R"("recurtype": 4, "recurday": 77, "recurmonth": 13)",
        R"("recurtype": 3, "recurweekmask": 6, "recurinstance": 1)",
        R"("recurtype": 5, "recurweekday": 3, "recurinterval": -1)",
        R"("recurtype": 6, "recurrepeat": 5, "recurhasenddate": 1, "recurenddate": 40000.123456789)",
        R"("recurtype": 0, "recurinterval": 0, "recurweekmask": 127)",
    };
    const char* const kValues[] = {
        R"("itemType": -1)",
        R"("itemType": 7, "priority": 9, "category": 77, "secret": 2, "complete": -3, "remindermin": -2147483648)",
        R"("itemType": 1, "complete": 1, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T07:00:00", "priority": 2)",
        R"("itemType": 0, "complete": 1, "priority": 0, "category": 14, "secret": 1)",
        R"("itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T06:00:00", "remindermin": 15)",
        R"("itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-25T06:00:00", "remindermin": -90)",
        R"("itemType": 0, "dtstart": 40385.12345678901, "dtend": 40386.0000001, "ringid": -4, "ring": "Ann's, \"x\"; y")",
        R"("itemType": 0, "vibration": 1, "duration": 60, "reserve1": 1, "reserve2": -2, "operation": 4)",
        R"("fields": [{"type": 3000, "data": "a"}, {"type": 3012, "data": "+49;,1"}, {"type": 3000, "data": "b"},
                      {"type": 3012, "data": "2", "number": 5}, {"type": 3003, "data": "Café, 山田; \\n 😀"}])",
        R"("fields": [{"type": 3004, "data": "http://example.com/?a,b;c\\"}, {"type": 4711, "data": "x:y"}])",
        R"("fields": [{"type": 3004, "data": "no address"}, {"type": 3002, "data": ""}, {"type": 3003, "data": "-"}])",
        R"("fields": [{"type": 3002, "data": "  a\r\nb\n\tc\r\u0001 "}, {"type": 3000, "data": "a\r\n\r\nb\r\n"}])",
    };
    std::string records;
    for (const char* const recurrence : kRecurrences)
        for (const char* const start : {"2010-07-26T06:00:00", "2010-07-31T00:00:01", ""})
            records += (records.empty() ? "" : ",\n") + std::string("{\"itemType\": 0, ") +
                       (*start != '\0' ? "\"dtstart\": \"" + std::string(start) + "\", " : "") + recurrence + "}";
    for (const char* const values : kValues)
        records += ",\n{" + std::string(values) + "}";
    records += R"(, {"fields": [{"type": 3002, "data": ")" + std::string(900, 'x') + R"(ä山 "}]})";
    folder.Put("in.json", R"({"orvale": 1, "kind": "calendar", "records": [)" + records + "]}");
    ASSERT_EQ(Run("convert in.json in.cal").errors,
              "orvale: in.cal: lost: mark of a date that could not be read: 1, "
              "first in calendar entry 68\n");
    const Outcome out = Run("convert --strict in.json a.ics");
    EXPECT_EQ(out.exitCode, 0);
    EXPECT_THAT(out.errors, testing::MatchesRegex("orvale: a.ics: [0-9]+ recurrences are no rule of iCalendar; other "
                                                  "programs show these entries once\n"));
    EXPECT_EQ(Run("convert --strict a.ics out.json").errors, "");
    EXPECT_TRUE(Run("show --json in.json").output == folder.Get("out.json"));
    std::istringstream written(folder.Get("a.ics"));
    bool hasStart = true;
    for (std::string line; std::getline(written, line); hasStart = hasStart || line.starts_with("DTSTART")) {
        if (line.starts_with("BEGIN:VEVENT")) hasStart = false;
        EXPECT_TRUE(hasStart || !line.starts_with("END:VEVENT"));  // the standard wants one
    }
    EXPECT_EQ(Run("convert in.cal b.ics && '" ORVALE_COMMAND "' convert --strict b.ics out.cal").exitCode, 0);
    EXPECT_EQ(Run("diff in.cal out.cal").exitCode, 0);
    for (std::size_t begin = 0, end = 0; begin < folder.Get("a.ics").size(); begin = end + 2) {
        end = folder.Get("a.ics").find("\r\n", begin);
        ASSERT_LE(end - begin, 75U);
        if (begin > 20000) break;  // enough of them
    }
}

// Rules of other programs for an event on Monday, 26 July 2010, 06:00 in Berlin: what a phone holds of them, or the
// words that tell why it can't.
TEST_F(IcsTest, RulesOfOtherPrograms) {
    const struct {
        const char* rule;
        const char* shown;
        const char* told;
    } kCases[] = {
        {"FREQ=DAILY", "every day", ""},
        {"FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR", "every workday", ""},
        {"FREQ=DAILY;BYDAY=SU,MO,TU,WE,TH,FR,SA;INTERVAL=2", "every 2 days", ""},
        {"FREQ=WEEKLY", "every week on Monday", ""},
        {"FREQ=WEEKLY;WKST=SU;BYDAY=SA,SU", "every week on Sunday, Saturday", ""},
        {"FREQ=MONTHLY;INTERVAL=6", "every 6 months on day 26", ""},
        {"FREQ=MONTHLY;BYDAY=4MO", "every month on Monday", ""},
        {"FREQ=MONTHLY;BYDAY=MO;BYSETPOS=4", "every month on Monday", ""},
        {"FREQ=YEARLY;COUNT=3", "every year on 26 July, 3 times", ""},
        {"FREQ=YEARLY;BYMONTH=7;BYDAY=4MO", "every year on Monday in July", ""},
        {"FREQ=YEARLY;UNTIL=20120726T040000Z", "every year on 26 July, until 2012-07-26 06:00", ""},
        {"FREQ=YEARLY;UNTIL=20120726", "every year on 26 July, until 2012-07-26 06:00", ""},
        {"FREQ=HOURLY;COUNT=1000000000", "", "more often than once a day"},
        {"FREQ=WEEKLY;BYHOUR=9,12", "", "at other times than that of their start"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,SU;WKST=SU", "", "weeks that don't begin with Monday"},
        {"FREQ=MONTHLY;BYMONTHDAY=1,15", "", "several days of a month"},
        {"FREQ=MONTHLY;BYMONTHDAY=-1", "", "counted from the end of the month"},
        {"FREQ=MONTHLY;BYDAY=-1MO", "", "counted from the end of the month"},
        {"FREQ=MONTHLY;BYDAY=1MO", "", "another weekday than that of their start"},
        {"FREQ=MONTHLY;BYDAY=1MO,3MO", "", "several weekdays of a month"},
        {"FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13", "", "a day of the month that is a weekday"},
        {"FREQ=YEARLY;BYMONTH=1,7", "", "several months"},
        {"FREQ=YEARLY;BYWEEKNO=20", "", "the number of a week"},
        {"FREQ=YEARLY;BYDAY=20MO", "", "counted in the year"},
        {"FREQ=DAILY;COUNT=99999999999", "", "numbers beyond those of a phone"},
        {"FREQ=DAILY;INTERVAL=70000", "", "numbers beyond those of a phone"},
        {"FREQ=SOMETIMES", "", "lines that can't be read"},
        {"FREQ=DAILY;BYMONTH=7", "", "days of some months alone"},
        {"FREQ=WEEKLY;BYMONTH=7", "", "days of some months alone"},
        {"FREQ=MONTHLY;BYMONTH=7", "", "days of some months alone"},
        {"FREQ=DAILY;INTERVAL=2;BYDAY=MO", "", "every so many days that are a weekday"},
        {"FREQ=WEEKLY;BYDAY=1MO", "", "a day that is none"},
        {"FREQ=WEEKLY;BYMINUTE=5", "", "at other times than that of their start"},
        {"FREQ=MONTHLY;BYDAY=MO", "", "in every week of a month"},
        {"FREQ=MONTHLY;BYDAY=4MO,4TU", "", "several weekdays of a month"},
        {"FREQ=MONTHLY;BYMONTHDAY=26;BYSETPOS=1", "", "one of several days"},
        {"FREQ=YEARLY;BYMONTH=8;BYDAY=4MO", "", "another weekday than that of their start"},
        {"FREQ=YEARLY;BYYEARDAY=200", "", "a day in the year"},
        {"RSCALE=HEBREW;FREQ=YEARLY", "", "another calendar than the Gregorian"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.rule);
        PutCalendar(std::string("BEGIN:VEVENT\nSUMMARY:x\nDTSTART;TZID=Europe/Berlin:20100726T060000\nRRULE:") +
                    each.rule + "\nEND:VEVENT\n");
        const std::string shown = Run("show in.ics").output;
        if (*each.shown != '\0')
            EXPECT_THAT(shown, HasSubstr("repeats                 " + std::string(each.shown) + "\n"));
        else
            EXPECT_THAT(shown, testing::Not(HasSubstr("repeats")));
        const std::string errors = Run("convert --force in.ics a.cal").errors;
        if (*each.told != '\0')
            EXPECT_THAT(errors, HasSubstr(each.told));
        else
            EXPECT_EQ(errors, "");
    }
}

TEST_F(IcsTest, TimesGoThroughTheirZones) {
    const struct {
        const char* start;
        const char* shown;
    } kCases[] = {
        {"DTSTART:20100726T060000", "2010-07-26T06:00:00"},
        {"DTSTART:20100726T060000Z", "2010-07-26T08:00:00"},
        {"DTSTART;TZID=America/New_York:20100726T200000", "2010-07-27T02:00:00"},
        {"DTSTART;TZID=\"/example.com/2010/America/New_York\":20100126T200000", "2010-01-27T02:00:00"},
        {"DTSTART;TZID=\"Mine: own\":20100726T060000", "2010-07-26T04:30:00"},     // defined behind its use
        {"DTSTART;TZID=America/New_York:20100314T023000", "2010-03-14T08:30:00"},  // skipped there: it is 03:30
        {"DTSTART;TZID=America/New_York:20101107T013000", "2010-11-07T06:30:00"},  // twice there: the first
        {"DTSTART;TZID=Europe/Berlin:20100328T023000", "2010-03-28T03:30:00"},
        {"DTSTART;TZID=Nowhere:20100726T060000", "2010-07-26T06:00:00"},
        {"DTSTART;TZID=Busy:20100726T060000", "2010-07-26T06:00:00"},  // its rule is passed over
        {"DTSTART;TZID=Summer:20100726T060000", "2010-07-26T07:00:00"},
        {"DTSTART;TZID=Summer:20100126T060000", "2010-01-26T07:00:00"},
        {"DTSTART;VALUE=DATE:20100726", "2010-07-26T00:00:00"},
        {"DTSTART:99991231T235960", "9999-12-31T23:59:59"},
    };
    for (const auto& each : kCases) {
        PutCalendar("BEGIN:VEVENT\n" + std::string(each.start) +
                    "\nEND:VEVENT\nBEGIN:VTIMEZONE\nTZID:Mine: own\nBEGIN:STANDARD\nDTSTART:16010101T000000\n"
                    "TZOFFSETFROM:+0330\nTZOFFSETTO:+0330\nEND:STANDARD\nEND:VTIMEZONE\n"
                    "BEGIN:VTIMEZONE\nTZID:Busy\nBEGIN:STANDARD\nDTSTART:16010101T000000\nTZOFFSETFROM:+0330\n"
                    "TZOFFSETTO:+0330\nRRULE:FREQ=SECONDLY\nEND:STANDARD\nEND:VTIMEZONE\n"
                    "BEGIN:VTIMEZONE\nTZID:Summer\nBEGIN:STANDARD\nDTSTART:19701025T020000\nTZOFFSETFROM:+0100\n"
                    "TZOFFSETTO:+0000\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\nEND:STANDARD\nBEGIN:DAYLIGHT\n"
                    "DTSTART:19700329T010000\nTZOFFSETFROM:+0000\nTZOFFSETTO:+0100\n"
                    "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\nEND:DAYLIGHT\nEND:VTIMEZONE\n");
        EXPECT_THAT(Run("show --json in.ics").output, HasSubstr("\"dtstart\": \"" + std::string(each.shown) + "\""))
            << each.start;
    }
    PutCalendar("BEGIN:VEVENT\nDTSTART:20100230T060000\nEND:VEVENT\n");
    EXPECT_THAT(Run("convert --force in.ics a.cal").errors, HasSubstr("lost: dates that can't be read: 1"));
    PutCalendar(  // Monday evening there is Tuesday here
        "BEGIN:VEVENT\nDTSTART;TZID=America/New_York:20100726T200000\nRRULE:FREQ=WEEKLY;BYDAY=MO,SA\nEND:VEVENT\n");
    EXPECT_THAT(Run("show in.ics").output, HasSubstr("every week on Sunday, Tuesday\n"));
    PutCalendar(  // a day there, to its end
        "BEGIN:VEVENT\nDTSTART;TZID=America/New_York:20100726T200000\nRRULE:FREQ=DAILY;UNTIL=20100730\nEND:VEVENT\n");
    EXPECT_THAT(Run("show in.ics").output, HasSubstr("every day, until 2010-07-31 02:00\n"));
}

// Lines of an entry, what a person is shown of them, and what is told to be lost.
TEST_F(IcsTest, WhatALineSays) {
    const std::string start = "DTSTART:20100726T060000\n";
    const auto alarm = [](const char* lines) { return "BEGIN:VALARM\n" + std::string(lines) + "END:VALARM\n"; };
    const struct {
        std::string lines;
        const char* shown;
        const char* told;
        const char* kind = "VEVENT";
    } kCases[] = {
        {"COMPLETED:20100726T060000Z\n", "[x] (no", "", "VTODO"},
        {"STATUS:COMPLETED\n", "[x] (no", "", "VTODO"},
        {"STATUS:NEEDS-ACTION\n", "[ ] (no", "", "VTODO"},
        {"PERCENT-COMPLETE:100\n", "[x] (no", "", "VTODO"},
        {"PERCENT-COMPLETE:0\n", "[ ] (no", "", "VTODO"},
        {"PERCENT-COMPLETE:40\n", "[ ] (no", "parts of a todo that are done: 1", "VTODO"},
        {"STATUS:CONFIRMED\nCLASS:PRIVATE\nPRIORITY:0\n", "secret                  yes\n\n", ""},
        {"CATEGORIES:BIRTHDAY,birthday,\n", "category                birthday\n", ""},
        {"CATEGORIES:BIRTHDAY,PHONE CALL,\n", "category                birthday\n", "further categories: 1"},
        {start + "RRULE:FREQ=DAILY\nRRULE:FREQ=WEEKLY\n", "every day\n", "further rules of a recurrence: 1"},
        {"RRULE:FREQ=DAILY\n", "(no", "recurrences without a start: 1"},
        {"DTSTART:20100329T060000\nRRULE:FREQ=MONTHLY;BYDAY=-1MO\n", "every month on Monday\n", "became the fifth: 1"},
        {"DTSTART;TZID=America/New_York:20100726T200000\nRRULE:FREQ=MONTHLY\n", "02:00", "in their zone than here"},
        {start + "DTEND:20100726T070000\nDURATION:PT3H\n", "06:00-07:00", ""},
        {"DTSTART:00500726T060000\n", "No date", "dates that can't be read: 1"},
        {start + alarm("TRIGGER:-PT90S\n"), "1 minutes before", "seconds of alarms: 1"},
        {alarm("ACTION:AUDIO\n"), "(no", "alarms that can't be read: 1"},
        {alarm("TRIGGER;RELATED=END:-PT5M\n"), "(no", "alarms that can't be read: 1"},
        {alarm("TRIGGER;VALUE=DATE-TIME:20100726T033000Z\n"), "(no", "alarms that can't be read: 1"},
        {"X-ORVALE-DURATION:x\nX-ORVALE-NONE:x\nX-ORVALE-FIELD:x\n", "(no", "lines that can't be read: 3"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.lines);
        PutCalendar("BEGIN:" + std::string(each.kind) + "\n" + each.lines + "END:" + each.kind + "\n");
        EXPECT_THAT(Run("show in.ics").output, HasSubstr(each.shown));
        const std::string errors = Run("convert --force in.ics a.cal").errors;
        EXPECT_THAT(errors, HasSubstr(each.told));
        EXPECT_EQ(errors.empty(), *each.told == '\0') << errors;
    }
}

TEST_F(IcsTest, WhatHasNoPlaceIsTold) {
    PutCalendar(
        "X-WR-CALNAME:Mine\nBEGIN:VEVENT\nUID:1\nDTSTAMP:20100726T060000Z\nDTSTART:20100726T060000\nDURATION:PT1H30M\n"
        "SUMMARY:Long \n line\nDESCRIPTION:\nPRIORITY:3\nCLASS:CONFIDENTIAL\nSTATUS:TENTATIVE\nCATEGORIES:WORK,Sick "
        "day\n"
        "EXDATE:20100727T060000\nRDATE:20100728T060000\nATTACH:http://x\nATTENDEE:mailto:a@b\nX-FOO:1\nSUMMARY;X\n"
        "BEGIN:VALARM\nTRIGGER;RELATED=END:-PT30M\nEND:VALARM\nBEGIN:VALARM\nTRIGGER;VALUE=DATE-TIME:20100726T033000Z\n"
        "END:VALARM\nBEGIN:VALARM\nTRIGGER:PT0S\nEND:VALARM\nBEGIN:X-PART\nSUMMARY:no\nEND:X-PART\nEND:VEVENT\n"
        "BEGIN:VJOURNAL\nSUMMARY:no\nEND:VJOURNAL\n");
    const struct {
        const char* what;
        int line;
    } kTold[] = {
        {"alarms at the start itself", 4},
        {"attachments", 18},
        {"categories that a phone doesn't know", 4},
        {"exceptions of a recurrence", 16},
        {"further alarms", 4},
        {"further dates of a recurrence", 17},
        {"lines of a kind that no phone knows: X-FOO", 20},
        {"lines of the calendar that belong to no entry: X-WR-CALNAME", 3},
        {"lines that can't be read", 21},
        {"marks 'confidential', which became secret", 4},
        {"parts of an entry: X-PART", 31},
        {"parts of the calendar that are no entry: VJOURNAL", 35},
        {"people who take part", 19},
        {"priorities between those of a phone", 4},
        {"states of an entry (tentative, cancelled, begun)", 4},
    };
    std::string told;
    for (const auto& each : kTold)
        told += std::string("orvale: a.json: lost: ") + each.what + ": 1, first in in.ics, line " +
                std::to_string(each.line) + "\n";
    EXPECT_EQ(Run("convert in.ics a.json").errors, told);
    EXPECT_EQ(Run("show in.ics").output,
              "Monday, 26 July 2010\n  06:00-07:30  Long line\n  alarm                   60 minutes after\n"
              "  priority                high\n  category                sick day\n  secret                  yes\n\n"
              "1 calendar entry\n");
}

// What another program changed wins over what we had put beside it.
TEST_F(IcsTest, AChangedValueIsTheNewOne) {
    PutCalendar(
        "BEGIN:VEVENT\nSUMMARY;X-ORVALE-EXACT=old%20:new\nDTSTART;X-ORVALE-DATE=40385.250001:20100727T060000\n"
        "RRULE:FREQ=DAILY\nX-ORVALE-RECURRENCE:2 0 0 0 0 62 1 0 0 0\nEND:VEVENT\n");
    EXPECT_EQ(Run("show in.ics").output,
              "Tuesday, 27 July 2010\n  06:00        new\n  repeats                 every day\n\n1 calendar entry\n");
}

TEST_F(IcsTest, VCalendarOfManyItems) {
    const std::string head = "BEGIN:VCALENDAR\r\nVERSION:1.0\r\n";
    const std::string plain = "BEGIN:VEVENT\r\nSUMMARY;ENCODING=QUOTED-PRINTABLE:One=3B=0D=0Atwo\r\nEND:VEVENT\r\n";
    folder.Put("one.vcs", head + plain + "END:VCALENDAR\r\n");
    EXPECT_THAT(Run("info one.vcs").output, HasSubstr("one.vcs: vcalendar "));
    folder.Put(
        "many.vcs",
        head + plain +
            "BEGIN:VTODO\r\nSUMMARY;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:Caf=E9, l=\r\n ang\r\n"
            "DUE:20080317T073000Z\r\nSTATUS:COMPLETED\r\nPRIORITY:2\r\nEND:VTODO\r\n"
            "BEGIN:VEVENT\r\nSUMMARY:Fold\r\n  ed\\; so\r\nDTSTART:20080317T073000Z\r\nRRULE:MP2 3+ MO #4\r\n"
            "AALARM;TYPE=X:20080317T070000Z;;;x\r\nCATEGORIES:PHONE CALL\r\nCLASS:PRIVATE\r\nEND:VEVENT\r\n"
            "BEGIN:VEVENT\r\nDTSTART:20080318T073000Z\r\nRRULE:W1 TU 0900 #0\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    EXPECT_EQ(Run("info many.vcs").output, "many.vcs: ics (calendar), version 1, VERIFY_OK (0), 4 records\n");
    EXPECT_EQ(Run("convert many.vcs a.cal").errors,
              "orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in many.vcs, line 24\n");
    EXPECT_EQ(
        Run("show a.cal").output,
        "Monday, 17 March 2008\n  08:30        Fold  ed; so\n"
        "  repeats                 every 2 months on Monday, 4 times\n  alarm                   30 minutes before\n"
        "  category                phone call\n  secret                  yes\n\n"
        "Tuesday, 18 March 2008\n  08:30        (no description)\n\n"
        "No date\n               One;\n               two\n               [x] Café, l ang\n"
        "  ends                    2008-03-17 08:30\n  priority                high\n\n4 calendar entries\n");
    // A folder of vCalendars takes those too that only the other reader takes whole.
    std::filesystem::create_directory(folder / "all");
    folder.Put("all/1.vcs", folder.Get("one.vcs"));
    folder.Put("all/2.vcs", folder.Get("many.vcs"));
    EXPECT_THAT(Run("convert all all.ics").errors, testing::Not(HasSubstr("passed over")));
    EXPECT_THAT(Run("info all.ics").output, HasSubstr("5 records"));
}

// Rules as version 1.0 writes them, for an event on Monday, 17 March 2008.
TEST_F(IcsTest, RulesOfVCalendar) {
    const struct {
        const char* rule;
        const char* shown;  // or, of one that a phone can't hold, what is told
    } kCases[] = {
        {"D1", "every day, 2 times\n"},
        {"d2 #5", "every 2 days, 5 times\n"},
        {"W1 MO #0", "every week on Monday\n"},
        {"W1 MO 20081231T000000", "every week on Monday, until 2008-12-31 00:00\n"},
        {"MD1 17 #3", "every month on day 17, 3 times\n"},
        {"MP1 3+ MO #3", "every month on Monday, 3 times\n"},
        {"YM1 3 #0", "every year on 17 March\n"},
        {"MD1 LD #3", "counted from the end of the month"},
        {"MD1 1- #3", "counted from the end of the month"},
        {"YD1 77 #0", "a day in the year"},
        {"X1 #0", "lines that can't be read: RRULE: 1"},
        {"D", "lines that can't be read: RRULE: 1"},
        {"DX", "lines that can't be read: RRULE: 1"},
        {"W1 XX", "lines that can't be read: RRULE: 1"},
        {"MD1 5* #0", "lines that can't be read: RRULE: 1"},
    };
    for (const auto& each : kCases) {
        folder.Put("in.vcs", "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nDTSTART:20080317T073000Z\r\nRRULE:" +
                                 std::string(each.rule) + "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
        const std::string told = Run("convert --force --from ics in.vcs a.cal").errors;
        EXPECT_THAT(told.empty() ? Run("show a.cal").output : told, HasSubstr(each.shown)) << each.rule;
    }
}

// A file cut off at any place gives the entries before it, and tells that it is damaged.
TEST_F(IcsTest, ACutFileIsToldAtEveryPlace) {
    PutCalendar("BEGIN:VEVENT\nSUMMARY:a\nEND:VEVENT\nBEGIN:VTODO\nSUMMARY:b\nEND:VTODO\n");
    const std::string whole = folder.Get("in.ics");
    for (std::size_t size = 15; size < whole.size(); size += 3) {
        folder.Put("cut.ics", whole.substr(0, size));
        const Outcome outcome = Run("info --json --format ics cut.ics");
        const std::size_t records = (size >= whole.find("BEGIN:VTODO") - 2) + (size >= whole.find("END:VCALENDAR") - 2);
        EXPECT_THAT(outcome.output, HasSubstr("\"records\": " + std::to_string(records) + ",")) << size;
        EXPECT_EQ(outcome.exitCode, size >= whole.size() - 2 ? 0 : 1) << size;
    }
}

// Files that cost nothing, whatever they say.
TEST_F(IcsTest, EnormousFilesAreBounded) {
    std::string many;
    for (int i = 0; i < 20000; ++i)
        many += "BEGIN:A\n";
    const struct {
        const char* name;
        std::string lines;
        const char* told;
    } kCases[] = {
        {"depth", "BEGIN:VEVENT\nSUMMARY:x\n" + many + "END:VEVENT\nBEGIN:VEVENT\nSUMMARY:y\nEND:VEVENT\n",
         "entries without an end: 1"},
        {"line", "BEGIN:VEVENT\nDESCRIPTION:" + std::string(2 << 20, 'x') + "\nSUMMARY:y\nEND:VEVENT\n",
         "lines of more than 262144 bytes: 1"},
        {"fold",
         "BEGIN:VEVENT\nDESCRIPTION:" +
             [] {
                 std::string folds;
                 for (int i = 0; i < 300000; ++i)
                     folds += "x\n ";
                 return folds;
             }() +
             "\nSUMMARY:y\nEND:VEVENT\n",
         "lines of more than 262144 bytes: 1"},
        {"component",
         "BEGIN:VEVENT\n" +
             [] {
                 std::string lines;
                 for (int i = 0; i < 100000; ++i)
                     lines += "SUMMARY:abcdef\n";
                 return lines;
             }() +
             "END:VEVENT\nBEGIN:VEVENT\nSUMMARY:y\nEND:VEVENT\n",
         "entries of more than a mebibyte: 1"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.name);
        PutCalendar(each.lines);
        const Outcome outcome = Run("convert --force in.ics a.cal", Limits(400000, 10) + "TZ=UTC");
        EXPECT_THAT(outcome.errors, HasSubstr(each.told));
        EXPECT_THAT(Run("show a.cal").output, HasSubstr("y\n"));
    }
}

// Other programs take what is written, and what they write is read. Skipped where they aren't installed.
TEST_F(IcsTest, OtherProgramsAgree) {
    folder.Put("check.py", R"(import sys
try:
    import icalendar, vobject
except ImportError:
    sys.exit(77)
data = open('a.ics', 'rb').read()
entries = [c for c in icalendar.Calendar.from_ical(data).walk() if c.name in ('VEVENT', 'VTODO')]
assert len(entries) == 6, entries
assert entries[1]['RRULE'].to_ical() == b'FREQ=WEEKLY;UNTIL=20081229T000000;BYDAY=MO', entries[1]['RRULE']
assert str(entries[0]['LOCATION']) == 'Caf\u00e9 Zentral'
assert str(entries[1]['DESCRIPTION']) == 'Bring the figures of last week.\nRoom is booked until noon.'
assert str(entries[0].walk('VALARM')[0]['TRIGGER'].to_ical(), 'ascii') == '-PT30M'
open('back1.ics', 'wb').write(icalendar.Calendar.from_ical(data).to_ical())
parsed = vobject.readOne(data.decode('utf-8'))
assert len(parsed.vevent_list) == 4 and len(parsed.vtodo_list) == 2
open('back2.ics', 'w', newline='').write(parsed.serialize(validate=False))
)");
    ASSERT_EQ(Run("convert --strict '" ORVALE_ROOT "/samples/calendar.cal' a.ics").errors, "");
    const int status = std::system(("cd '" + (folder / "").string() + "' && /usr/bin/python3 check.py").c_str());
    if (WEXITSTATUS(status) == 77 || WEXITSTATUS(status) == 127)
        GTEST_SKIP() << "python3-icalendar and python3-vobject aren't installed";
    ASSERT_EQ(status, 0);
    // They put the properties into an order of their own.
    const auto shown = [&](const std::string& name) { return Run("show " + name + " | sort").output; };
    for (const char* const back : {"back1.ics", "back2.ics"})
        EXPECT_EQ(shown(back), shown("a.ics")) << back;
}

}  // namespace
}  // namespace orvale::test
