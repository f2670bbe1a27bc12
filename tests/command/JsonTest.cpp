#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "command/console/CommandError.h"
#include "command/json/JsonDocument.h"
#include "support/ScratchFolder.h"

namespace orvale::test {
namespace {

std::string ErrorOf(const ScratchFolder& folder, const std::string& text) {
    folder.Put("in.json", text);
    try {
        JsonDocument document(folder / "in.json", "in.json");
        for (CContactItem contact; document.Next(contact);)
            contact = CContactItem();
        return document.BrokenAt() ? "cut off behind byte " + std::to_string(*document.BrokenAt()) : "";
    } catch (const CommandError& error) {
        return error.what();
    }
}

TEST(JsonTest, SaysWhatIsWrongAndWhere) {
    const std::string head = R"({"orvale": 1, "kind": "contacts", )";
    const auto inRecord = [&](const std::string& record) { return head + "\"records\": [{}, " + record + "]}"; };
    const auto inField = [&](const std::string& field) { return inRecord("{\"fields\": [" + field + "]}"); };
    const struct {
        const char* name;
        std::string text;
        const char* error;
    } kCases[] = {
        {"Good", inField(R"({"type": 1, "typeName": 7, "data": "x"})"), ""},
        {"NoRecords", head + "\"profile\": null}", ""},
        {"Empty", "", "in.json: line 1: the document ends too early"},
        {"NoJson", head + "\"records\": [\n{\"storage\": nul}]}", "in.json: line 2: no JSON here"},
        {"CutInAText", head + "\"records\": [{\"fields\": [{\"data\": \"x", "cut off behind byte 46"},
        {"CutBehindARecord", head + "\"records\": [{}", "cut off behind byte 48"},
        {"ZeroBehind", head + "\"records\": []}" + std::string("\0x", 2),
         "in.json: line 1: something stands behind the document"},
        {"Behind", head + "\"records\": []}x", "in.json: line 1: something stands behind the document"},
        {"TooDeep", inRecord(std::string(100000, '[')), "in.json: line 1: nested too deeply"},
        {"UnknownTopKey", head + "\"x\": 1}", "in.json: x: unknown key"},
        {"OtherVersion", R"({"orvale": 2})", "in.json: orvale: only documents of version 1 are known"},
        {"OtherKind", R"({"orvale": 1, "kind": "x"})",
         "in.json: kind: no kind of data; contacts, calendar, sms and email are"},
        {"HalfAMark", "\xEF\xBBx", "in.json: line 1: no JSON document"},
        {"NoKind", R"({"orvale": 1})", "in.json: kind: the key is missing"},
        {"KindBehind", R"({"orvale": 1, "records": []})", "in.json: line 1: \"kind\" has to stand before \"records\""},
        {"ProfileBehind", head + "\"records\": [], \"profile\": null}",
         "in.json: profile: has to stand before \"records\""},
        {"TwiceOnTop", head + "\"kind\": \"sms\"}", "in.json: kind: the key stands twice"},
        {"Twice", inField(R"({"type": 1, "type": 1})"), "in.json: records[1].fields[0].type: the key stands twice"},
        {"UnknownKey", inField(R"({"tpye": 1})"), "in.json: records[1].fields[0].tpye: unknown key"},
        {"NameAlone", inField(R"({"typeName": "x"})"), "in.json: records[1].fields[0].typeName: unknown key"},
        {"GroupTwice", inField(R"({"groups": [{"id": 1}, {"id": 1}]})"),
         "in.json: records[1].fields[0].groups: an id stands twice"},
        {"SteeringKey", inField("{\"\\u001b[31m" + std::string(50, 'k') + "\": 1}"),
         "in.json: records[1].fields[0].^[[31mkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk…: unknown key"},
        {"NameOfNothing", inField(R"({"dataName": 1})"), "in.json: records[1].fields[0].dataName: unknown key"},
        {"Real", inField(R"({"type": 1.0})"), "in.json: records[1].fields[0].type: expected a whole number"},
        {"TooLarge", inField(R"({"type": 2147483648})"), "in.json: records[1].fields[0].type: out of range"},
        {"FarTooLarge", inField(R"({"type": 18446744073709551615})"),
         "in.json: records[1].fields[0].type: out of range"},
        {"NegativeUnsigned", inField(R"({"extraNumber": -1})"),
         "in.json: records[1].fields[0].extraNumber: out of range"},
        {"NoText", inField(R"({"data": 1})"), "in.json: records[1].fields[0].data: expected a text"},
        {"Truth", inField(R"({"data": true})"), "in.json: records[1].fields[0].data: expected a text"},
        {"NoList", inRecord(R"({"fields": {}})"), "in.json: records[1].fields: expected a list"},
        {"NoObject", inRecord("7"), "in.json: records[1]: expected an object"},
        {"LoneHalf", inField(R"({"data": "\ud800"})"), "in.json: line 1: no JSON here"},
        {"BadUtf8", inField("{\"data\": \"\xFF\"}"), "in.json: line 1: no JSON here"},
        {"GroupWithoutText", inField(R"({"groups": [{"id": 1, "name": null}]})"),
         "in.json: records[1].fields[0].groups[0].name: expected a text"},
    };
    const ScratchFolder folder;
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(ErrorOf(folder, each.text), each.error);
    }
}

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
