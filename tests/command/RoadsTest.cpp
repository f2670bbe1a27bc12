#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "command/Program.h"
#include "command/formats/FormatTable.h"
#include "host/Formats.h"

namespace orvale::test {
namespace {

using testing::HasSubstr;

// A record of each kind with values that all its formats hold, and how these stand in the JSON document.
struct KindSample {
    Kind kind;
    const char* document;
    std::vector<const char*> kept;
};

const KindSample& SampleOf(Kind kind) {
    static const KindSample kSamples[] = {
        {Kind::kContacts,
         R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [
             {"type": 1, "data": "Ελένη"}, {"type": 2, "data": "Lee, junior"}, {"type": 104, "data": "+49 170"}]}]})",
         {"\"Ελένη\"", "\"Lee, junior\"", "\"+49 170\""}},
        {Kind::kCalendar,
         R"({"orvale": 1, "kind": "calendar", "records": [{"itemType": 0, "priority": 2,
             "fields": [{"type": 3000, "data": "Frühstück; 山田"}, {"type": 3003, "data": "Café"}],
             "dtstart": "2010-07-26T06:00:15", "dtend": "2010-07-26T07:00:00"}]})",
         {"\"Frühstück; 山田\"", "\"Café\"", "\"priority\": 2", "\"2010-07-26T06:00:15\"", "\"2010-07-26T07:00:00\""}},
        {Kind::kSms,
         R"({"orvale": 1, "kind": "sms", "records": [{"storageid": 1, "status": 2, "listtype": 3, "name": "Ann",
             "phonenumber": "+49", "content": "<Hallo> & \"so\"", "time": "2010-07-26 06:00:15"}]})",
         {"\"<Hallo> & \\\"so\\\"\"", "\"Ann\"", "\"2010-07-26 06:00:15\"", "\"storageid\": 1", "\"status\": 2",
          "\"listtype\": 3"}},
        {Kind::kEmail,
         R"({"orvale": 1, "kind": "email", "records": [{"type": 1, "box": "In", "device": 2, "status": 1,
             "account": "<id>1</id>", "folder": "Old", "from": "a@b", "to": "c@d", "subject": "Grüße", "body": "Text",
             "received": "2010-07-26T06:00:15", "accessory": ["a.jpg", "b.jpg"], "importance": 3, "entryid": "x"}]})",
         {"\"Grüße\"", "\"<id>1</id>\"", "\"Old\"", "\"2010-07-26T06:00:15\"", "\"b.jpg\"", "\"importance\": 3",
          "\"x\""}},
    };
    for (const KindSample& sample : kSamples)
        if (sample.kind == kind) return sample;
    throw std::logic_error("no sample of the kind");
}

std::string Into(const FormatRow& format) {
    return "convert --force --to " + std::string(format.name) + " ";  // formats may share an extension
}

// A file with the values of the kind's sample in a format that is only read.
std::string FileOf(const FormatRow& format) {
    if (format.type == FileFormat::kSsy) {
        const std::string record = "Ελένη,Lee&44 junior,,,,9,+49 170:,";
        std::string header("SSY 1.0");
        header.resize(50, '\0');
        return header + static_cast<char>(record.size() + 1) + std::string(3, '\0') + record + '\0';
    }
    throw std::logic_error("no file of the format");
}

bool Holds(const FormatRow& format, Kind kind) {
    return !format.kind || *format.kind == kind;
}

// Every road between two formats of a kind, by the command's own table: what all formats hold arrives.
TEST(RoadsTest, EveryFormatGoesIntoEveryOther) {
    const ScratchFolder folder;
    for (const Kind kind : {Kind::kContacts, Kind::kCalendar, Kind::kSms, Kind::kEmail}) {
        const KindSample& sample = SampleOf(kind);
        folder.Put("in.json", sample.document);
        for (const FormatRow& first : FormatTable()) {
            if (!first.Reads() || !Holds(first, kind)) continue;
            const std::string from = "from" + std::string(first.extension);
            if (first.writes)
                ASSERT_EQ(RunOrvale(folder, Into(first) + "in.json " + from).exitCode, 0) << first.name;
            else
                folder.Put(from, FileOf(first));
            EXPECT_THAT(RunOrvale(folder, "info " + from).output,
                        HasSubstr(from + ": " + std::string(first.name) + " "));
            for (const FormatRow& second : FormatTable()) {
                if (!second.writes || !Holds(second, kind)) continue;
                SCOPED_TRACE(std::string(first.name) + " to " + std::string(second.name));
                const std::string to = "to" + std::string(second.extension);
                const Outcome outcome = RunOrvale(folder, Into(second) + from + " " + to);
                EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
                if (!second.Reads()) continue;
                EXPECT_EQ(RunOrvale(folder, "info " + to).exitCode, 0);
                const std::string shown = RunOrvale(folder, "show --json --no-profile " + to).output;
                for (const char* const value : sample.kept)
                    EXPECT_THAT(shown, HasSubstr(value));
            }
        }
    }
}

// A new format is there for its users only with these.
TEST(RoadsTest, EveryFormatHasItsPageAndItsRow) {
    std::ifstream in(ORVALE_ROOT "/README.md");
    const std::string readme{std::istreambuf_iterator<char>(in), {}};
    for (const FormatRow& format : FormatTable()) {
        if (!format.lacks.empty()) continue;  // its row tells of a build that has all
        const std::string name(format.name);
        EXPECT_TRUE(std::filesystem::exists(ORVALE_ROOT "/docs/formats/" + name + ".md")) << name;
        const std::string row = "| `" + name + "` | " + std::string(format.kind ? KindWord(*format.kind) : "all") +
                                " | `" + std::string(format.extension) + "` | " +
                                (format.type ? std::to_string(static_cast<FileType>(*format.type)) : "–") +
                                (format.Reads() ? " | yes" : " | no") + (format.writes ? " | yes | " : " | no | ");
        EXPECT_THAT(readme, HasSubstr(row));
    }
}

class SuitesTest : public testing::Test {
 protected:
    Outcome Run(const std::string& words) { return RunOrvale(folder, words); }
    ScratchFolder folder;
};

// Profiles of all four kinds, as `show --json` prints them, with every value one of its own.
TEST_F(SuitesTest, AProfileComesBackFromItsSuite) {
    const struct {
        const char* kind;
        const char* profile;
    } kCases[] = {
        {"contacts", R"({"config": 131073, "speeddial": {"label": "Speed", "flag": 2, "min": 3, "max": 4,
            "assignablephonetypes": "a", "unassignableid": "b"}, "devices": [{"id": 5, "name": "Phone",
            "config": 84, "typespercontact": 6, "typecount": 7, "namecount": 8, "typeset": [{"id": 5,
            "label": "Name", "icon": "i.bmp", "length": 9}], "memorylocation": {"label": "Place", "flag": 10,
            "min": 11, "max": 12, "unassignable": "c"}, "groupset": {"name": "Groups", "flag": 13,
            "groups": [{"id": 14, "label": "Work"}]}}], "handset": "X100", "dllname": "x100.dll"})"},
        {"calendar", R"({"handset": "X100", "dllname": "x100.dll", "configs": [{"type": 1, "config": 3}]})"},
        {"sms", R"({"config": 3, "MaxRecipientNum": 4, "MaxPageNum": 5, "MaxSSMPageEng": 6, "MaxSSMPageDBC": 7,
            "MaxLSMPageEng": 8, "MaxLSMPageDBC": 9, "storages": [{"id": 1, "name": "Phone"}], "boxes": [{"type": 1,
            "name": "In", "capacity": 10, "used": 11, "position": 12, "location": "here", "config": 13,
            "displays": [{"label": "Name", "index": 14, "width": 15}], "subboxes": [{"id": 16, "name": "Sub"}]}],
            "handset": "X100", "dllname": "x100.dll"})"},
        {"email", R"({"handset": "X100", "dllname": "x100.dll", "config": 3, "capacity": 4, "devices": [{"id": 1,
            "name": "Phone", "config": 0, "capacity": 5}], "accounts": [{"id": 1, "name": "Home", "config": 0,
            "capacity": 6, "password": "secret", "Address": "a@b", "boxes": [{"type": 1, "name": "In", "config": 7,
            "capacity": 8, "subfolders": ["<id>1</id>"]}]}]})"},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.kind);
        const std::string document = std::string("{\"orvale\": 1, \"kind\": \"") + each.kind +
                                     "\", \"profile\": " + each.profile + ", \"records\": []}";
        folder.Put("in.json", document);
        const Outcome out = Run("convert --strict --force in.json a.xml");
        EXPECT_EQ(out.exitCode, 0) << out.errors;
        EXPECT_EQ(Flat(Run("show --json --with-passwords a.xml").output), Flat(document));
        folder.Put("profile.json", each.profile);
        folder.Put("empty.json", std::string("{\"orvale\": 1, \"kind\": \"") + each.kind + "\"}");
        EXPECT_EQ(Run("convert --strict --force --profile profile.json empty.json b.xml").exitCode, 0);
        EXPECT_EQ(folder.Get("b.xml"), folder.Get("a.xml"));
        EXPECT_THAT(Run("show --profile-only a.xml").output, HasSubstr("X100"));
        EXPECT_THAT(Run("show --json --no-profile a.xml").output, HasSubstr("\"profile\": null"));
    }
}

TEST_F(SuitesTest, APasswordIsShownOnlyWhereItIsAskedFor) {
    folder.Put("in.json",
               R"({"orvale": 1, "kind": "email", "profile": {"accounts": [{"id": 1, "password": "secret"}]}})");
    ASSERT_EQ(Run("convert --strict in.json a.xml").exitCode, 0);  // that dllname gets its ".dll" is no loss
    EXPECT_THAT(folder.Get("a.xml"), HasSubstr("secret"));
    for (const char* words : {"show --json a.xml", "show --profile-only a.xml", "convert a.xml -"}) {
        const Outcome outcome = Run(words);
        EXPECT_THAT(outcome.output, testing::Not(HasSubstr("secret"))) << words;
    }
    EXPECT_THAT(Run("show --json a.xml").errors, HasSubstr("passwords are left out"));
    EXPECT_THAT(Run("show --profile-only --with-passwords a.xml").output, HasSubstr("secret"));
}

TEST_F(SuitesTest, ABrokenContactIsPassedOverAndTold) {
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [
        {"fields": [{"type": 5, "data": "A"}]}, {"fields": [{"type": 5, "data": "B"}]}, {"fields": [{"type": 5, "data": "C"}]}]})");
    ASSERT_EQ(Run("convert in.json a.xml").exitCode, 0);
    std::string xml = folder.Get("a.xml");
    const std::size_t second = xml.find("<contact>", xml.find("<contact>") + 1);
    ASSERT_NE(second, std::string::npos);
    const std::size_t device = xml.find("<device>", second);
    xml.replace(device, 8, "<devixe>").replace(xml.find("</device>", device), 9, "</devixe>");
    folder.Put("broken.xml", xml);
    const Outcome shown = Run("show broken.xml");
    EXPECT_EQ(shown.exitCode, 1);
    EXPECT_EQ(shown.output, "A\n\nC\n\n2 contacts\n");
    EXPECT_EQ(shown.errors, "orvale: broken.xml: 1 record could not be read and was passed over\n");
    EXPECT_EQ(Run("info broken.xml").exitCode, 1);
    EXPECT_EQ(Run("convert broken.xml b.qzs").exitCode, 1);
    EXPECT_EQ(Run("show b.qzs").output, "A\n\nC\n\n2 contacts\n");
    EXPECT_EQ(Run("convert --strict broken.xml c.qzs").exitCode, 3);
}

// A is a whole contact, as are B and C; b is one without its device.
TEST_F(SuitesTest, BrokenContactsAreCountedWhereverTheyStand) {
    const struct {
        const char* contacts;
        std::size_t shown;
        std::size_t passedOver;
    } kCases[] = {{"", 0, 0},      {"A", 1, 0},   {"AB", 2, 0},  {"AbB", 2, 1},
                  {"AbbBC", 3, 2}, {"bbA", 1, 2}, {"ABb", 2, 1}, {"bAbbBb", 2, 4}};
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.contacts);
        std::string xml =
            "<phonebook version='100' "
            "id='suite-phonebook'><profile><device><id>1</id><typeset><C00><id>5</id></C00></typeset>"
            "</device></profile><contactentries>";
        for (const char name : std::string(each.contacts))
            xml += name == 'b' ? std::string("<contact><C00>broken</C00></contact>")
                               : "<contact><device>1</device><C00>" + std::string(1, name) + "</C00></contact>";
        folder.Put("a.xml", xml + "</contactentries></phonebook>");
        const Outcome outcome = Run("info --json a.xml");
        EXPECT_THAT(outcome.output, HasSubstr("\"records\": " + std::to_string(each.shown) + ","));
        EXPECT_EQ(outcome.exitCode, each.passedOver == 0 ? 0 : 1);
        const std::string told =
            each.passedOver == 0 ? "" : "orvale: a.xml: " + std::to_string(each.passedOver) + " record";
        EXPECT_EQ(outcome.errors.substr(0, told.size()), told);
    }
}

// The reader puts the moment of reading in place of such a date: no two readings are alike.
TEST_F(SuitesTest, ADateThatCantBeReadEndsWithTheFile) {
    folder.Put(
        "a.xml",
        "<calendar version='100' id='suite-calendar'><profile/><calendarentries><data><dtstart>2020</dtstart></data>"
        "<data/></calendarentries></calendar>");
    EXPECT_THAT(Run("info --json a.xml").output, HasSubstr("\"records\": 2,"));
    folder.Put("bad.xml", "<phonebook id='suite-phonebook'><profile>");
    EXPECT_EQ(Run("show bad.xml").errors, "orvale: bad.xml: no well-formed XML document, or one beyond the limits\n");
    folder.Put("type.xml",
               "<!DOCTYPE SMS [<!ENTITY a 'b'>]><SMS version='100' id='suite-SMS'><profile/><smsentries/></SMS>");
    EXPECT_THAT(Run("info type.xml").output, HasSubstr("type.xml: sms-xml"));
}

TEST_F(SuitesTest, CsvByBuiltInCaptionsAndByAProfile) {
    folder.Put("in.json", R"({"orvale": 1, "kind": "contacts", "records": [{"fields": [
        {"type": 5, "data": "Ann \"A\", Lee"}, {"type": 104, "data": "1"}, {"type": 104, "data": "2"}, {"type": 4711, "data": "x"},
        {"type": 3002, "data": "a\r\nb"}]}]})");
    EXPECT_EQ(Run("convert in.json a.csv").errors,
              "orvale: a.csv: changed: note: 1, first in contact 1\norvale: a.csv: moved: order of the values: 1, "
              "first in contact 1\n");
    EXPECT_EQ(
        folder.Get("a.csv"),
        "full name,mobile phone,note,Type 4711,mobile phone,\r\n\"Ann \"\"A\"\", Lee\",\"1\",\"a b\",\"x\",\"2\",\r\n");
    EXPECT_THAT(Run("show a.csv").output, HasSubstr("  type 4711               x\n"));

    folder.Put("columns.json", R"({"columns": [{"caption": "Name", "type": 5}, {"caption": "Handy", "type": 104}]})");
    EXPECT_THAT(Run("convert --profile columns.json in.json b.csv").errors, HasSubstr("lost: note: 1"));
    EXPECT_THAT(folder.Get("b.csv"), testing::StartsWith("Name,Handy,Handy,\r\n"));
    EXPECT_THAT(Run("show b.csv").errors, HasSubstr("b.csv: lost: values of column 'Name', which nobody knows"));
    EXPECT_THAT(Run("show --profile columns.json b.csv").output, HasSubstr("  mobile phone            1\n"));
    EXPECT_EQ(Run("convert --profile columns.json in.json c.qzs").errors,
              "orvale: columns.json: passed over, for neither side of the work takes such a profile\n");
    EXPECT_EQ(Run("convert a.csv d.ssy").exitCode, 2);
}

TEST_F(SuitesTest, WhatAReaderOfTextCantMakeOutIsTold) {
    folder.Put("bad.csv", "full name,note\r\nA,\"\xFF\xFE\"\r\nB,c\xFF\r\n" + std::string("C\0D\r\n", 5));
    EXPECT_EQ(Run("convert bad.csv a.qzs").errors,
              "orvale: a.qzs: lost: bytes that code page 65001 doesn't have: 3, first in bad.csv, line 2\n"
              "orvale: a.qzs: lost: ends of values behind a zero byte: 1, first in bad.csv, line 4\n");
    std::string ssy(50, '\0');
    ssy += std::string("\x16\0\0\0Ann,,,,,:,\0Be\xFF,,,,,:,\0", 4 + 22);
    folder.Put("bad.ssy", ssy);
    EXPECT_EQ(Run("convert bad.ssy b.qzs").errors,
              "orvale: b.qzs: lost: bytes that code page 65001 doesn't have: 1, first in bad.ssy, record 2\n");
}

}  // namespace
}  // namespace orvale::test
