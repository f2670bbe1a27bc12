#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "command/json/JsonDocument.h"

namespace orvale::test {
namespace {

// A date is told as text only where that gives back the very same number.
TEST(JsonTest, DatesComeBackBitByBit) {
    const struct {
        double value;
        const char* json;
    } kCases[] = {
        {0.0, "null"},
        {-0.0, "-0.0"},
        {40385.25, "\"2010-07-26T06:00:00\""},
        {-1.25, "\"1899-12-29T06:00:00\""},
        {40385.250000001, "40385.250000001"},
        {1e300, "1e+300"},
        {std::numeric_limits<double>::infinity(), "\"inf\""},
        {-std::numeric_limits<double>::infinity(), "\"-inf\""},
        {std::numeric_limits<double>::quiet_NaN(), "\"nan\""},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.json);
        std::string out;
        JsonNotes notes;
        JsonWriter writer(out, 0, notes);
        writer.Date("date", DateValue(each.value));
        writer.Finish();
        EXPECT_EQ(out, "{\n  \"date\": " + std::string(each.json) + "\n}");
        DateValue date(7.0);
        const JsonPointer value = ParseJson(out, "", "", 1);
        JsonReader(*value, "", "").Date("date", date);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(date.Value()), std::bit_cast<std::uint64_t>(each.value));
    }
}

}  // namespace
}  // namespace orvale::test
