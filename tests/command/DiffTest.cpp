#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command/Program.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

std::string Contacts(const std::string& records) {
    return R"({"orvale": 1, "kind": "contacts", "records": [)" + records + "]}";
}

const std::string kAnn = R"({"fields": [{"type": 5, "data": "Ann"}, {"type": 104, "data": "1"}]})";
const std::string kAnnMoved = R"({"fields": [{"type": 5, "data": "Ann"}, {"type": 104, "data": "2"}]})";
const std::string kBob = R"({"fields": [{"type": 5, "data": "Bob"}]})";
const std::string kBobNoted = R"({"fields": [{"type": 5, "data": "Bob"}, {"type": 4000, "data": "x\u001b"}]})";
const std::string kCat = R"({"storage": 1, "fields": [{"type": 5, "data": "Cat"}]})";
const std::string kKat = R"({"storage": 1, "fields": [{"type": 5, "data": "Kat"}]})";

class DiffTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words) { return RunOrvale(folder, words); }
    ScratchFolder folder;
};

TEST_F(DiffTest, TellsRecordByRecordWhatDiffers) {
    const struct {
        const char* name;
        std::string a;
        std::string b;
        int exitCode;
        const char* output;
    } kCases[] = {
        {"Same", kAnn + "," + kBob, kAnn + "," + kBob, 0, "contacts: 2 the same\n"},
        {"BothEmpty", "", "", 0, "contacts: 0 the same\n"},
        {"Twins", kAnn + "," + kAnn, kAnn, 1,
         "contact 2 Ann, only in a.json\ncontacts: 1 the same, 1 only in a.json\n"},
        {"OneMoreInFront", kBob + "," + kAnn, kAnn, 1,
         "contact 1 Bob, only in a.json\ncontacts: 1 the same, 1 only in a.json\n"},
        {"OneLess", kAnn, kAnn + "," + kBob, 1,
         "contact 2 Bob, only in b.json\ncontacts: 1 the same, 1 only in b.json\n"},
        {"AnotherOrder", kAnn + "," + kBob + "," + kCat, kCat + "," + kAnn + "," + kBob, 1,
         "contacts: 3 the same; 1 of the same in another order\n"},
        {"AnotherValue", kBob + "," + kAnn, kAnnMoved + "," + kBob, 1,
         "contact 2 Ann, in b.json 1\n"
         "  mobile phone            \"1\" in a.json, \"2\" in b.json\n"
         "contacts: 1 the same, 1 different\n"},
        {"AnotherLineEnd", R"({"fields": [{"type": 5, "data": "Bob"}, {"type": 3002, "data": "x\r\ny"}]})",
         R"({"fields": [{"type": 5, "data": "Bob"}, {"type": 3002, "data": "x\ny"}]})", 1,
         "contact 1 Bob\n"
         "  note                    \"x^M^Jy\" in a.json, \"x^Jy\" in b.json\n"
         "contacts: 0 the same, 1 different\n"},
        {"OneValueMore", kBob, kBobNoted, 1,
         "contact 1 Bob\n"
         "  general address         \"x^[\" only in b.json\n"
         "contacts: 0 the same, 1 different\n"},
        {"AnotherNameInTheSamePlace", kBob + "," + kCat, kBob + "," + kKat, 1,
         "contact 2 Cat\n"
         "  full name               \"Cat\" in a.json, \"Kat\" in b.json\n"
         "contacts: 1 the same, 1 different\n"},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.name);
        folder.Put("a.json", Contacts(test.a));
        folder.Put("b.json", Contacts(test.b));
        const Outcome outcome = Run("diff a.json b.json");
        EXPECT_EQ(outcome.exitCode, test.exitCode);
        EXPECT_EQ(outcome.output, test.output);
        EXPECT_EQ(outcome.errors, "");
    }
}

TEST_F(DiffTest, HoldsFilesOfDifferentFormatsAndDamagedOnesAgainstEachOther) {
    folder.Put("a.json", Contacts(kAnn + "," + kBobNoted));
    ASSERT_EQ(Run("convert a.json a.qzs").exitCode, 0);
    EXPECT_EQ(Run("diff a.json a.qzs").exitCode, 0);
    EXPECT_EQ(Run("diff --format json a.json - <a.json").exitCode, 0);
    folder.Put("cut.qzs", folder.Get("a.qzs").substr(0, folder.Get("a.qzs").size() - 1));
    const Outcome cut = Run("diff a.qzs cut.qzs");
    EXPECT_EQ(cut.exitCode, 1);
    EXPECT_THAT(cut.errors, HasSubstr("cut.qzs: record 2, byte "));
    EXPECT_THAT(cut.output, HasSubstr("contact 2 Bob, only in a.qzs"));
    folder.Put("sms.json", R"({"orvale": 1, "kind": "sms", "records": []})");
    EXPECT_THAT(Run("diff a.qzs sms.json").errors, HasSubstr("sms.json: holds messages, not contacts"));
}

// What a reader lost or passed over isn't compared, and that is told; so is the end of a damaged file of each kind.
TEST_F(DiffTest, WhatIsNotComparedIsTold) {
    for (const std::string name : {"contacts.qzs", "calendar.cal", "messages.sms", "mails.eml"}) {
        std::filesystem::copy_file(ORVALE_ROOT "/samples/" + name, folder / name);
        const std::string whole = folder.Get(name);
        folder.Put("cut", whole.substr(0, whole.size() - 1));
        EXPECT_THAT(Run("diff " + name + " cut").errors, HasSubstr("damaged from here on, which is not compared\n"));
        EXPECT_THAT(Run("convert --force " + name + " cut new.json").errors,
                    HasSubstr("--partial takes what came before\n"));
        EXPECT_THAT(Run("convert --force --partial " + name + " cut new.json").errors, HasSubstr("and left out\n"));
        EXPECT_THAT(Run("convert --force --unique " + name + " " + name + " new.json").errors, HasSubstr("left out: "));
    }
    folder.Put("a.vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A\r\nPHOTO:x\r\nEND:VCARD\r\n");
    folder.Put("b.xml",
               "<phonebook version='100' id='suite-phonebook'><profile><device><id>1</id><typeset><C00><id>5</id></C00>"
               "</typeset></device></profile><contactentries><contact><C00>broken</C00></contact><contact>"
               "<device>1</device><C00>A</C00></contact></contactentries></phonebook>");
    const Outcome outcome = Run("diff a.vcf b.xml");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors,
              "orvale: not compared: PHOTO: 1, first in a.vcf, line 4\n"
              "orvale: b.xml: 1 record could not be read and was passed over\n");
}

TEST_F(DiffTest, DatesAndNumbersWithNamesAreToldAsAPersonReadsThem) {
    const std::string head = R"({"orvale": 1, "kind": "calendar", "records": [{)";
    folder.Put("a.json", head + R"("dtstart": "2010-07-26T06:00:15", "category": 1}]})");
    folder.Put("b.json", head + R"("dtstart": "2010-07-27T06:00:00", "category": 2}]})");
    const std::string output = Run("diff a.json b.json").output;
    EXPECT_THAT(output, HasSubstr("\"2010-07-26 06:00:15\" in a.json, \"2010-07-27 06:00\" in b.json"));
    EXPECT_THAT(output, HasSubstr("\"1 (CATE_"));
}

TEST_F(DiffTest, ARecordIsNamedByWhatAPersonKnowsItBy) {
    const struct {
        const char* kind;
        const char* record;
        const char* changed;
        const char* output;
    } kCases[] = {
        {"sms", R"("name": "Ann", "phonenumber": "1", "time": "t", "content": "x")", R"("content": "y")",
         "message 1 Ann <1>, t\n"},
        {"sms", R"("phonenumber": "1", "time": "", "content": "x")", R"("content": "y")", "message 1 1\n"},
        {"sms", R"("name": "Ann", "time": "", "content": "x")", R"("content": "y")", "message 1 Ann\n"},
        {"sms", R"("time": "", "content": "x")", R"("content": "y")", "message 1 (nobody)\n"},
        {"email", R"("subject": "s", "body": "x")", R"("body": "y")", "email 1 s\n"},
        {"email", R"("body": "x")", R"("body": "y")", "email 1 (no subject)\n"},
        {"calendar", R"("fields": [{"type": 3000, "data": "s"}], "ring": "x")", R"("ring": "y")",
         "calendar entry 1 s\n"},
    };
    for (const auto& each : kCases) {
        const std::string head = R"({"orvale": 1, "kind": ")" + std::string(each.kind) + R"(", "records": [{)";
        std::string other = each.record;
        other.replace(other.rfind(std::string(each.changed).substr(0, 6)), std::string::npos, each.changed);
        folder.Put("a.json", head + each.record + "}]}");
        folder.Put("b.json", head + other + "}]}");
        EXPECT_THAT(Run("diff a.json b.json").output, testing::StartsWith(each.output));
    }
}

TEST_F(DiffTest, ProfilesAreComparedWithoutTheirPasswords) {
    const auto emails = [](const std::string& profile) {
        return R"({"orvale": 1, "kind": "email", "profile": )" + profile + R"(, "records": []})";
    };
    folder.Put("a.json", emails(R"({"dllname": "one"})"));
    folder.Put("b.json", emails(R"({"dllname": "two"})"));
    const Outcome outcome = Run("diff a.json b.json");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.output, HasSubstr("\"one\" in a.json, \"two\" in b.json"));
}

TEST_F(DiffTest, AsJsonForScripts) {
    folder.Put("a.json", Contacts(kBob));
    folder.Put("b.json", Contacts(kBobNoted + "," + kCat));
    EXPECT_EQ(Flat(Run("diff --json a.json b.json").output), Flat(R"({
        "kind": "contacts", "files": ["a.json", "b.json"], "same": 0, "moved": 0, "profile": [], "records": [{"numbers": [1, 1], "title": "Bob", "changes": [{"what": "general address", "before": null,
        "after": "x\u001b"}]}, {"numbers": [null, 2], "title": "Cat", "changes": []}]})"));
}

TEST_F(DiffTest, UniqueWritesEqualRecordsOnce) {
    folder.Put("a.json", Contacts(kAnn + "," + kBob + "," + kAnn));
    folder.Put("b.json", Contacts(kBob + "," + kAnnMoved));
    const Outcome outcome = Run("convert --unique --strict a.json b.json all.qzs");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "orvale: all.qzs: left out: 2 contacts equal to an earlier one\n");
    folder.Put("wanted.json", Contacts(kAnn + "," + kBob + "," + kAnnMoved));
    EXPECT_EQ(Run("diff wanted.json all.qzs").output, "contacts: 3 the same\n");
}

}  // namespace
}  // namespace orvale::test
