#include "frame/UtcText.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "platform/Format.h"
#include "support/Cases.h"
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
    const StoppedClock clock(1280124015);
    for (const auto& each : test::Cases("utc-text.cases")) {
        DateValue date(1.0);
        EXPECT_EQ(UtcTextToDate(FromUtf8(each[0]), date), each[1] == "taken") << each[0];
        const auto fields = date.Fields().value_or(CalendarFields{});
        EXPECT_EQ(ToUtf8(Format(u"%d-%d-%d %d:%d:%d", fields.year, fields.month, fields.day, fields.hour, fields.minute,
                                fields.second)),
                  each[2])
            << each[0];
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
