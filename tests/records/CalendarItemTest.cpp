#include "records/CalendarItem.h"

#include <gtest/gtest.h>

// What the native file stores is copied and cleared in the tests of that file.

TEST(CalendarItem, CopiesAndClearsAllButTheVersion) {
    for (const std::int32_t version : {100, 101}) {
        CCalendarItem source;
        source.version = version;
        source.operation = source.firstNumber = source.secondNumber = 5;
        source.firstText = source.secondText = u"x";
        source.thirdDate = source.fourthDate = DateValue(1.0, DateValue::kNull);
        source.category = CATE_TRAVEL;
        source.fields.push_back(std::make_unique<CCalendarField>());
        source.fields.push_back(nullptr);
        CCalendarItem copy;
        copy.version = 7;
        copy = source;
        EXPECT_EQ(copy.GetVersion(), 7);
        EXPECT_EQ(copy.operation + copy.firstNumber + copy.secondNumber, 15);
        EXPECT_EQ(copy.firstText + copy.secondText, u"xx");
        EXPECT_EQ(copy.thirdDate.GetStatus() + copy.fourthDate.GetStatus(), 4);
        EXPECT_EQ(copy.category, version == 101 ? CATE_TRAVEL : 0);
        ASSERT_EQ(copy.fields.size(), 2U);
        EXPECT_NE(copy.fields[0], source.fields[0]);
        EXPECT_EQ(copy.fields[1], nullptr);

        source.Clear();
        EXPECT_EQ(source.GetVersion(), version);
        EXPECT_EQ(source.operation + source.firstNumber + source.secondNumber, -2);
        EXPECT_EQ(source.firstText + source.secondText, u"");
        EXPECT_TRUE(source.thirdDate.IsNone() && source.fourthDate.IsNone() && source.fields.empty());
        EXPECT_EQ(source.category, version == 101 ? 0 : CATE_TRAVEL) << "the older layout has none to be touched";
    }
}

TEST(CalendarConfigSet, CopiesDeeplyWithoutNulls) {
    CCalendarConfigSet set;
    set.number = 3;
    set.firstText = set.secondText = set.thirdText = u"x";
    set.texts = {u"a", u"b"};
    set.numbers = {1, 2};
    set.configs.push_back(nullptr);
    EXPECT_EQ(set.AddConfig(CCalendarConfig()), 1);
    const CCalendarConfigSet copy = set;
    set.Clear();
    EXPECT_EQ(copy.configs.size() * 10 + set.configs.size(), 10U);
    EXPECT_EQ(copy.firstText + copy.secondText + copy.thirdText + set.thirdText, u"xxx");
    EXPECT_EQ(copy.texts.size() * 10 + copy.numbers.size() + set.texts.size() + set.numbers.size(), 22U);
    EXPECT_EQ(copy.number * 10 + set.number, 30);
}
