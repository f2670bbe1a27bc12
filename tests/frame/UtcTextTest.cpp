#include "frame/UtcText.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "support/Zone.h"

using namespace orvale;
using orvale::test::Zone;

TEST(UtcText, ThereAndBackInEachZone) {
    struct Case {
        const char* zone;
        CalendarFields local;
        std::u16string_view text;
    };
    const Case cases[] = {
        {"UTC", {2010, 7, 26, 6, 0, 15}, u"20100726T060015Z"},
        {"Europe/Berlin", {2010, 7, 26, 8, 0, 15}, u"20100726T060015Z"},
        {"UTC", {210, 1, 2, 3, 4, 5}, u" 2100102T030405Z"},  // the year's four places aren't filled with zeros
    };
    for (const Case& each : cases) {
        const Zone zone(each.zone);
        EXPECT_EQ(DateToUtcText(DateValue::FromFields(each.local)), each.text) << each.zone;
        DateValue back;
        EXPECT_TRUE(UtcTextToDate(each.text, back)) << each.zone;
        EXPECT_EQ(back.Fields(), each.local) << each.zone;
    }
    EXPECT_EQ(DateToUtcText(DateValue()), u"");
}

TEST(UtcText, Reads) {
    constexpr CalendarFields kNow{2010, 7, 26, 6, 0, 15};
    const StoppedClock clock(1280124015);
    struct Case {
        std::u16string_view text;
        bool result;
        std::optional<CalendarFields> fields;  // none for an invalid date
    };
    const Case cases[] = {
        {u"", true, CalendarFields{1899, 12, 30, 0, 0, 0}},
        {u"x", false, kNow},
        {u"20010203T040506", false, kNow},  // too short by one
        {u"20010203T040506Z and more", true, CalendarFields{2001, 2, 3, 4, 5, 6}},
        {u"20010203xxT040506", true, CalendarFields{2001, 2, 3, 4, 5, 6}},  // the first T, wherever it stands
        {u"2001020304050607", true, CalendarFields{2001, 2, 3, 20, 1, 2}},  // without one, the front
        {u"200102030405060T", true, CalendarFields{2001, 2, 3, 0, 0, 0}},
        {u"20010203T0405xxZ", true, CalendarFields{2001, 2, 3, 4, 5, 0}},
        {u"20010230T040506Z", false, std::nullopt},
        {u"no date, but long", false, std::nullopt}};
    for (const Case& each : cases) {
        DateValue date(1.0);
        EXPECT_EQ(UtcTextToDate(each.text, date), each.result) << std::string(each.text.begin(), each.text.end());
        EXPECT_EQ(date.Fields(), each.fields) << std::string(each.text.begin(), each.text.end());
    }
}

TEST(UtcText, LocaleTextLeavesOutWhatIsZero) {
    const std::pair<DateValue, std::u16string_view> cases[] = {
        {DateValue(40385.25), u"07/26/10 06:00:00"},
        {DateValue(40385), u"07/26/10"},
        {DateValue(0.25), u"06:00:00"},
        {DateValue(40385.25, DateValue::kNull), u""},
        {DateValue(40385.25, DateValue::kInvalid), u"Invalid DateTime"},
        {DateValue(1e9), u"Invalid DateTime"}};
    for (const auto& [date, text] : cases)
        EXPECT_EQ(DateToLocaleText(date), text);
}
