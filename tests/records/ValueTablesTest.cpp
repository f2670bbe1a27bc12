#include "records/ValueTables.h"

#include <gtest/gtest.h>

using namespace orvale;

// The flags of a phone's calendar are the bits in their order, and their texts have the ends that documents print.
TEST(ValueTables, CalendarProperties) {
    ASSERT_EQ(std::size(kCalendarProperties), 25U);
    int tabs = 0;
    for (std::size_t i = 0; i < std::size(kCalendarProperties); ++i) {
        EXPECT_EQ(kCalendarProperties[i].value, i == 0 ? 0 : 1 << (i - 1));
        tabs += kCalendarProperties[i].text.ends_with(u'\t');
    }
    EXPECT_EQ(tabs, 12);
    EXPECT_EQ(kCalendarProperties[0].text.size(), 46U + 12);
    EXPECT_EQ(kCalendarProperties[23].WideName(), u"CAL_PROP_SAMEDATE");
}

TEST(ValueTables, Captions) {
    EXPECT_EQ(ValueCaption(kEmailBoxTypes, 53), "custom box 3");
    EXPECT_EQ(ValueCaption(kEmailBoxTypes, 52), "52");
    EXPECT_EQ(FlagsCaption(kWeekdays, 62), "Monday, Tuesday, Wednesday, Thursday, Friday");
    EXPECT_EQ(FlagsCaption(kWeekdays, 0), "none");
    EXPECT_EQ(FlagsCaption(kWeekdays, 0x81), "Sunday, 0x80");
    EXPECT_EQ(FlagsCaption(kWeekdays, INT32_MIN), "0x80000000");
    EXPECT_EQ(FlagsCaption(kCalendarProperties, 0), "start, end and description only");
}
