#include "native/QZSFile.h"

#include <gtest/gtest.h>

#include "native/NativeSamples.h"
#include "platform/Clock.h"
#include "platform/Format.h"
#include "support/FileDriver.h"
#include "support/Memory.h"
#include "support/SystemCalls.h"

using namespace orvale::test;

namespace {

using QZSDriver = FileDriver<CQZSFile, CContactItem>;

const std::string& kHeader = Contacts::kHeader;
const std::string& kGroupedRecord = Contacts::kBytes;

// The keys of a field's groups in the order of iteration.
std::u16string KeysOf(const CContactField& field) {
    std::u16string keys;
    for (const auto& entry : field.groups)
        keys += orvale::Format(u"%d ", entry.key);
    return keys;
}

class QZSFile : public testing::Test {
 protected:
    void Write(const std::vector<const CContactItem*>& contacts) const {
        const orvale::StoppedClock clock(kDayOfWriting);
        QZSDriver file(path_, CFile::kCreateReadWrite);
        EXPECT_EQ(file->WriteFileHeader(), 1);
        for (const CContactItem* contact : contacts) {
            const WriteCalls calls;
            EXPECT_EQ(file.Write(contact), 1);
            EXPECT_EQ(calls.Count(), 1U);
        }
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.qzs");
};

}  // namespace

TEST_F(QZSFile, WritesExactlyTheseBytes) {
    const CContactItem grouped = Contacts::Sample();
    const CContactItem empty;
    CContactItem withNull = ContactOf("100=1");
    withNull.fields.push_back(nullptr);  // counted, without bytes
    Write({&grouped, &empty, &withNull});
    EXPECT_EQ(folder_.Get("file.qzs"), kHeader + kGroupedRecord + Int32(0) + Int32(0) + Int32(0) + Int32(2) +
                                           Int32(100) + String(u"1") + std::string(12, '\0'));
    QZSDriver file(path_);
    EXPECT_EQ(file->ReadFileHeader(), 1);
    const CContactItem* const read = file.Next();
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(KeysOf(*grouped.Field(0)), u"1 2 16 ");
    EXPECT_EQ(KeysOf(*read->Field(0)), u"2 1 16 ") << "read into one field and added as another";
    EXPECT_EQ(read->Index, -1);
}

TEST_F(QZSFile, CountsAndLengthsOutOfRange) {
    const std::size_t last = kGroupedRecord.size() - 4;  // the count of the second field's pairs
    const std::tuple<std::size_t, std::vector<std::int64_t>, bool> cases[] = {
        {4, {-1, INT32_MIN}, true},  // the fields; a negative count is none
        {4, {3, INT32_MAX}, false},
        {30, {4, INT32_MAX}, false},  // the pairs
        {last, {-1, INT32_MIN}, true},
        {last, {1, INT32_MAX}, false},
        {12, {-1, INT32_MIN, 1024, INT32_MAX}, false},   // the length of the data,
        {24, {-1, INT32_MIN, 1024, INT32_MAX}, false},   // of the extra text,
        {38, {-1, INT32_MIN, 1024, INT32_MAX}, false}};  // of a group's name
    for (const auto& [offset, values, comes] : cases) {
        for (const std::int64_t value : values) {
            folder_.Put("file.qzs", kHeader + std::string(kGroupedRecord).replace(offset, 4, Int32(value)));
            QZSDriver file(path_);
            EXPECT_EQ(file->ReadFileHeader(), 1);
            EXPECT_EQ(file.Next() != nullptr, comes) << offset << ' ' << value;
            while (file.Next() != nullptr) {  // what is left may pass for records; it must only end
            }
        }
    }
    folder_.Put("file.qzs", kHeader + kGroupedRecord.substr(0, kGroupedRecord.size() - 1));
    QZSDriver file(path_);
    void* record = nullptr;
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(file->Read(&record), 0);
    EXPECT_EQ(ValuesOf(*static_cast<CContactItem*>(record)), "5=\xC3\x84\xE4\xB8\xAD") << "the field that was whole";
}

TEST_F(QZSFile, AHeaderIsWrittenInItsPlace) {
    folder_.Put("file.qzs", std::string(24, '\0') + "kept");
    QZSDriver file(path_, CFile::kModeReadWrite);
    const orvale::StoppedClock clock(kDayOfWriting);
    EXPECT_EQ(file->ReadFileHeader() + file->WriteFileHeader(), 2);
    EXPECT_EQ(folder_.Get("file.qzs"), kHeader + "kept");
    EXPECT_EQ(file->GetPosition(), 24U);
}

TEST_F(QZSFile, ReadingTakesNoMoreMemoryForMoreRecords) {
    folder_.Put("file.qzs", kHeader + Repeated(kGroupedRecord, 100));
    const std::size_t few = PeakOfReading<QZSDriver>(path_, 100);
    folder_.Put("file.qzs", kHeader + Repeated(kGroupedRecord, 10000));
    EXPECT_LT(PeakOfReading<QZSDriver>(path_, 10000), few + 16 * 1024);
}
