#include "platform/DateValue.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/Clock.h"
#include "support/Zone.h"

using namespace orvale;
using orvale::test::Zone;

namespace {

constexpr CalendarFields kNone{-1, -1, -1, -1, -1, -1};

CalendarFields PartsOf(const DateValue& date) {
    return {date.Year(), date.Month(), date.Day(), date.Hour(), date.Minute(), date.Second()};
}

}  // namespace

TEST(DateValue, Parts) {
    const std::pair<double, CalendarFields> cases[] = {
        {0.0, {1899, 12, 30, 0, 0, 0}},
        {-0.25, {1899, 12, 30, 6, 0, 0}},
        {-1.25, {1899, 12, 29, 6, 0, 0}},  // the fraction counts forward
        {-1.9999999, {1899, 12, 30, 0, 0, 0}},
        {40385 + 15.4 / 86400, {2010, 7, 26, 0, 0, 15}},
        {40385 + 15.6 / 86400, {2010, 7, 26, 0, 0, 16}},
        {40385 + 86399.6 / 86400, {2010, 7, 27, 0, 0, 0}},
        {-657434.5, {100, 1, 1, 12, 0, 0}},
        {-657435, kNone},
        {2958465 + 86399.0 / 86400, {9999, 12, 31, 23, 59, 59}},
        {2958465 + 86399.9 / 86400, kNone},  // would round into the year 10000
        {1e300, kNone},
        {std::numeric_limits<double>::quiet_NaN(), kNone}};
    for (const auto& [value, parts] : cases)
        EXPECT_EQ(PartsOf(DateValue(value)), parts) << value;
    for (const DateValue::Status status : {DateValue::kInvalid, DateValue::kNull})
        EXPECT_EQ(PartsOf(DateValue(40385.25, status)), kNone);
}

TEST(DateValue, OfFields) {
    const std::pair<CalendarFields, double> good[] = {{{1899, 12, 29, 6, 0, 0}, -1.25},
                                                      {{2010, 7, 26, 6, 0, 0}, 40385.25},
                                                      {{2000, 2, 29, 0, 0, 0}, 36585},
                                                      {{100, 1, 1, 0, 0, 0}, -657434}};
    for (const auto& [fields, value] : good)
        EXPECT_EQ(DateValue::FromFields(fields).Value(), value);
    const CalendarFields bad[] = {kNone,
                                  {1900, 2, 29, 0, 0, 0},
                                  {2010, 13, 1, 0, 0, 0},
                                  {2010, 4, 31, 0, 0, 0},
                                  {2010, 1, 0, 0, 0, 0},
                                  {2010, 1, 1, 24, 0, 0},
                                  {2010, 1, 1, 0, 60, 0},
                                  {2010, 1, 1, 0, 0, 60},
                                  {99, 12, 31, 0, 0, 0},
                                  {10000, 1, 1, 0, 0, 0}};
    for (const CalendarFields& fields : bad)
        EXPECT_EQ(DateValue::FromFields(fields).GetStatus(), DateValue::kInvalid) << fields.year << '-' << fields.month;
}

TEST(DateValue, DaysComeBack) {
    int expected = 6;  // 2 January 100 was a Saturday
    for (int day = -657433; day < 2958465; day += 5, expected = (expected + 5) % 7) {
        const std::optional<CalendarFields> fields = DateValue(day + (day < 0 ? -1 : 1) * 0.999988426).Fields();
        ASSERT_TRUE(fields && fields->hour == 23 && fields->second == 59) << day;
        ASSERT_EQ(DateValue::FromFields(*fields).Fields(), fields) << day;
        ASSERT_EQ(DayOfWeek(*fields), expected) << day;
    }
}

TEST(DateValue, ZonesBothWays) {
    struct Case {
        const char* zone;
        CalendarFields local;
        CalendarFields utc;
    };
    const Case cases[] = {
        {"UTC", {1969, 12, 31, 23, 59, 59}, {1969, 12, 31, 23, 59, 59}},  // second -1 of the system's count
        {"Europe/Berlin", {2010, 7, 26, 8, 0, 15}, {2010, 7, 26, 6, 0, 15}},
        {"Europe/Berlin", {2010, 1, 1, 0, 30, 0}, {2009, 12, 31, 23, 30, 0}},
        {"America/New_York", {2010, 12, 31, 20, 0, 0}, {2011, 1, 1, 1, 0, 0}},
        {"Asia/Kolkata", {2010, 7, 26, 11, 30, 15}, {2010, 7, 26, 6, 0, 15}}};
    for (const Case& each : cases) {
        const Zone zone(each.zone);
        EXPECT_EQ(LocalToUtc(each.local), each.utc) << each.zone;
        EXPECT_EQ(UtcToLocal(each.utc), each.local) << each.zone;
    }
    EXPECT_FALSE(UtcToLocal({2010, 2, 30, 0, 0, 0}) || LocalToUtc({2010, 2, 30, 0, 0, 0}));
    const StoppedClock clock(1280124015);
    const Zone zone("Asia/Kolkata");
    EXPECT_EQ(PartsOf(DateValue::Now()), (CalendarFields{2010, 7, 26, 11, 30, 15}));
    EXPECT_EQ(UtcNow(), (CalendarFields{2010, 7, 26, 6, 0, 15}));
}
