#include "text/CSVFile.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include "support/Cases.h"
#include "support/Child.h"
#include "support/FileDriver.h"

using namespace orvale::test;
using testing::ElementsAre;

namespace {

using CSVDriver = FileDriver<CCSVFile, CContactItem>;

const CCSVProfile kProfile{{1, 104, 3002, 104}, {u"Given", u"Mob,ile", u"", {u"Mobile\0cut off", 14}}};
const std::string kHeader = "Given,Mob,ile,,Mobile,\r\n";

// What the lines behind a header give.
std::vector<std::string> ReadAll(const std::string& bytes) {
    const ScratchFolder folder;
    folder.Put("in.csv", bytes);
    CSVDriver file(folder.Name("in.csv"));
    const CCSVProfile profile{{1, 104, 3002}, {u"Given", u"Mobile", u"Note"}};
    file->SetProfile(&profile);
    EXPECT_EQ(file->ReadFileHeader(), 1);
    std::vector<std::string> all;
    while (!file->AtEnd()) {
        const CContactItem* contact = file.Next();
        all.push_back(contact != nullptr ? ValuesOf(*contact) : "refused");
    }
    EXPECT_EQ(file.Next(), nullptr);
    return all;
}

std::string Bytes(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 31 / 7);
    return bytes;
}

}  // namespace

TEST(CSVFile, ALineGivesItsFields) {
    for (const auto& each : Cases("csv.cases")) {
        EXPECT_THAT(ReadAll(" given,MOBILE ,Colour,Note\r\n" + each[0] + "\r\n"), ElementsAre(each[1])) << each[0];
        EXPECT_THAT(ReadAll("GIVEN,mobile,Colour,Note,\r\n" + each[0]), ElementsAre(each[1])) << each[0];
    }
    // Where a quote never closes, the comma at the end counts as taken with it.
    EXPECT_THAT(ReadAll("Given,Given\r\na,,\r\n\"a,,"), ElementsAre("1=a|1=", "1=\"a"));
}

TEST(CSVFile, ALineHas2047BytesAtMost) {
    for (const auto& each : Cases("csv-long.cases")) {
        const std::vector<std::string> contacts(each.begin() + 1, each.end());
        EXPECT_EQ(ReadAll("Given\r\n" + each[0]), contacts) << each[0].size();
    }
}

TEST(CSVFile, AHeaderNamesAtLeastOneColumn) {
    for (const auto& each : Cases("csv-headers.cases")) {
        const ScratchFolder folder;
        folder.Put("in.csv", each[0]);
        CSVDriver file(folder.Name("in.csv"));
        EXPECT_EQ(file->ReadFileHeader() != 0, each[1] == "read") << each[0];
        EXPECT_EQ(file->Verify() == VERIFY_OK, each[2] == "there") << each[0];
    }
}

TEST(CSVFile, AContactIsALineOfQuotedValues) {
    const std::pair<std::vector<const char*>, std::string> cases[] = {
        {{}, kHeader},
        {{"", "5=no such column"}, kHeader + ",,,,\r\n,,,,\r\n"},
        {{"3002=n|1=Ann"}, kHeader + "\"Ann\",,\"n\",,\r\n"},
        {{"1=|104=\",\"|104=\xC3\xAB\r\n"}, kHeader + "\"\",\"\"\",\"\"\",,\"\xC3\xAB\r\n\",\r\n"},
        {{"104=1", "104=1|1=A|104=2|104=3|1=B", "1=C|1=D"},  // wider and wider
         "Given,Mob,ile,,Mobile,Mob,ile,Given,\r\n,\"1\",,,\r\n\"A\",\"1\",,\"2\",\"3\",\"B\",\r\n\"C\",,,,,\"D\","
         "\r\n"},
    };
    for (const auto& [contacts, bytes] : cases) {
        const ScratchFolder folder;
        CSVDriver file(folder.Name("out.csv"), CFile::kCreateReadWrite);
        CContactItem contact;
        EXPECT_EQ(file->WriteFileHeader() + file.Write(&contact), 0);  // not without a profile
        file->SetProfile(&kProfile);
        for (const char* values : contacts) {
            contact = ContactOf(values);
            contact.fields.push_back(nullptr);
            if (contact.fields[0]) contact.fields[0]->Data += std::u16string(u"\0cut off", 8);
            EXPECT_EQ(file.Write(&contact), 1);
        }
        EXPECT_EQ(file->WriteFileHeader(), 1);
        EXPECT_EQ(folder.Get("out.csv"), bytes);
    }
}

TEST(CSVFile, TheHeaderGoesInFrontOfAnyLength) {
    for (const std::size_t length : {0U, 1U, 23U, 25U, 256U * 1024 + 24, 600U * 1024}) {
        const std::string content = Bytes(length);
        const ScratchFolder folder;
        folder.Put("f.csv", content);
        CSVDriver file(folder.Name("f.csv"), CFile::kModeReadWrite);
        file->SetProfile(&kProfile);
        EXPECT_EQ(file->WriteFileHeader(), 1);
        const CContactItem contact;
        EXPECT_EQ(file.Write(&contact), 1);
        EXPECT_TRUE(folder.Get("f.csv") == kHeader + content + ",,,,\r\n") << length;
    }
}

TEST(CSVFile, AFullDiskLeavesTheContacts) {
    const ScratchFolder folder;
    const std::string content = Bytes(300'000);
    folder.Put("f.csv", content);
    const ChildResult child = InChild([&] {
        CSVDriver file(folder.Name("f.csv"), CFile::kModeReadWrite);
        file->SetProfile(&kProfile);
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{300'004, 300'004};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        EXPECT_EQ(file->WriteFileHeader(), 0);
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_TRUE(folder.Get("f.csv") == content);
}

TEST(CSVFile, ColumnsHaveTheirTypesFromTheLastProfile) {
    const ScratchFolder folder;
    folder.Put("f.csv", "A,B,C\r\n1,2,3,4,5\r\n1,2,3,4,5\r\n1,2,3,4,5\r\n");
    CSVDriver file(folder.Name("f.csv"));
    EXPECT_EQ(file->ReadFileHeader() + file->ReadFileHeader(), 2);
    EXPECT_EQ(ValuesOf(*file.Next()), "");
    // Of two captions that are alike the first counts, -1 is the type of none, and C has no type.
    const CCSVProfile profile{{7, 8, 0xFFFFFFFF}, {u"b", u"B", u"A", u"C"}};
    file->SetProfile(&profile);
    file->SetProfile(nullptr);
    EXPECT_EQ(ValuesOf(*file.Next()), "7=2");
    const CCSVProfile none;
    file->SetProfile(&none);
    EXPECT_EQ(ValuesOf(*file.Next()), "");
}
