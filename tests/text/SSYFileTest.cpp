#include "text/SSYFile.h"

#include <gmock/gmock.h>

#include "support/Bytes.h"
#include "support/Cases.h"
#include "support/FileDriver.h"

using namespace orvale::test;
using namespace std::string_literals;
using testing::ElementsAre;

namespace {

using SSYDriver = FileDriver<CSSYFile, CContactItem>;

std::string Header(std::int64_t size) {
    std::string header = "SSY 1.0";
    header.resize(40);
    return header + "2010-07-26" + Int32(size);  // the date fills its place: no zero ends it
}

struct ReadBack {
    std::int32_t header;
    std::int32_t code;
    std::vector<std::string> contacts;
};

ReadBack ReadAll(const std::string& bytes) {
    const ScratchFolder folder;
    folder.Put("in.ssy", bytes);
    SSYDriver file(folder.Name("in.ssy"));
    ReadBack all{file->ReadFileHeader(), file->Verify(), {}};
    while (!file->AtEnd()) {
        const CContactItem* contact = file.Next();
        all.contacts.push_back(contact != nullptr ? ValuesOf(*contact) : "refused");
    }
    EXPECT_EQ(file.Next(), nullptr);
    return all;
}

std::vector<std::string> ReadRecords(const std::string& records) {
    return ReadAll(Header(0) + records).contacts;
}

}  // namespace

TEST(SSYFile, ARecordGivesItsFieldsInMapOrder) {
    for (const auto& each : Cases("ssy.cases"))
        EXPECT_THAT(ReadRecords(each[0] + "\0"s), ElementsAre(each[1])) << each[0];
}

TEST(SSYFile, ARecordEndsInAZeroWithin2048Bytes) {
    const std::string x(2047, 'x');
    EXPECT_THAT(ReadRecords(x + "\0Ann\0"s), ElementsAre("1=" + x, "1=Ann"));
    EXPECT_THAT(ReadRecords(x + "x\0Ann\0"s), ElementsAre("refused", "refused", "1=Ann"));  // an empty one follows
    EXPECT_THAT(ReadRecords(x + "xyz\0Ann\0"s), ElementsAre("refused", "1=yz", "1=Ann"));
    EXPECT_THAT(ReadRecords("\0A\0B"s), ElementsAre("refused", "1=A", "refused"));
}

TEST(SSYFile, CutAtEveryLengthTheWholeRecordsRemain) {
    const std::string bytes = Header(12) + "Ann,\0Bea,Lee\0"s;  // the size lies by one
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        SCOPED_TRACE(size);
        const ReadBack cut = ReadAll(bytes.substr(0, size));
        EXPECT_EQ(cut.header, size >= 54);
        EXPECT_EQ(cut.code, size == 54 + 12 ? VERIFY_OK : VERIFY_WRONG_SIZE);
        std::vector<std::string> whole;
        if (size >= 54 + 5) whole.emplace_back("1=Ann");
        if (size == bytes.size()) whole.emplace_back("2=Lee|1=Bea");
        if (size > 54 && size != 54 + 5 && size != bytes.size()) whole.emplace_back("refused");
        EXPECT_EQ(cut.contacts, whole);
    }
    for (const std::int64_t size : {-54, 0x7FFFFFFF, -1})
        EXPECT_EQ(ReadAll(Header(size)).code, VERIFY_WRONG_SIZE) << size;
    EXPECT_EQ(ReadAll(Header(0)).code, VERIFY_OK);
}
