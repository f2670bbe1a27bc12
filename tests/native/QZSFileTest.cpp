#include "native/QZSFile.h"

#include <gtest/gtest.h>

#include <map>

#include "platform/Clock.h"
#include "platform/Format.h"
#include "support/Bytes.h"
#include "support/FileDriver.h"
#include "support/Memory.h"
#include "support/SystemCalls.h"

using namespace orvale::test;

namespace {

using QZSDriver = FileDriver<CQZSFile, CContactItem>;

const std::string kHeader = std::string(
                                "<QZ-QZS>\0\0"
                                "20100726\0\0",
                                20) +
                            Int32(100);

// The keys of a field's groups in the order of iteration.
std::u16string KeysOf(const CContactField& field) {
    std::u16string keys;
    for (const auto& entry : field.groups)
        keys += orvale::Format(u"%d ", entry.key);
    return keys;
}

// All that the file keeps of a contact, as text; groups in the order of their keys.
std::u16string TextOf(const CContactItem& contact) {
    std::u16string text = orvale::Format(u"storage %d\n", contact.Storage);
    for (const auto& field : contact.fields) {
        text += orvale::Format(u"%d [%s] %u [%s]", field->Type, field->Data, field->extraNumber, field->extraText);
        std::map<std::int32_t, std::u16string> groups;
        for (const auto& entry : field->groups)
            groups[entry.key] = entry.value;
        for (const auto& [key, name] : groups)
            text += orvale::Format(u" %d=%s", key, name);
        text += u'\n';
    }
    return text;
}

CContactItem GroupedContact() {
    CContactItem contact;
    contact.Storage = 2;
    contact.Index = contact.MemoryLocation = 9;  // in no file
    CContactField field;
    field.Type = 5;
    field.Data = u"\u00C4\u4E2D";
    field.extraNumber = 0xFFFFFFFE;
    field.extraText = u"x";
    field.SetGroup(1, u"a");
    field.SetGroup(2, u"b");
    field.SetGroup(16, u"c");
    contact.AddField(field);
    contact.AddField(CContactField());
    return contact;
}

// AddField's copy turned the bucket of 1 and 2 around, and writing turns it once more.
const std::string kGroupedRecord = Int32(2) + Int32(2) + Int32(5) + String(u"\u00C4\u4E2D") + Int32(-2) + String(u"x") +
                                   Int32(3) + Int32(2) + String(u"b") + Int32(1) + String(u"a") + Int32(16) +
                                   String(u"c") + std::string(20, '\0');

class QZSFile : public testing::Test {
 protected:
    void Write(const std::vector<const CContactItem*>& contacts) const {
        const orvale::StoppedClock clock(1280124015);
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
    const CContactItem grouped = GroupedContact();
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

TEST_F(QZSFile, EveryTypeComesBackInItsPlace) {
    const char16_t* const scripts[] = {u"J\u00FCrgen", u"\u0418\u0432\u0430\u043D", u"\u5F20\u4F1F",
                                       u"\u05D3\u05D5\u05D3 \U0001F600\xD800"};
    std::vector<CContactItem> contacts(3);
    CContactField field;
    for (const ContactFieldType& row : kContactFieldTypes) {
        field.Clear();
        field.Type = row.id;
        field.Data = scripts[row.id % 4];
        field.extraNumber = static_cast<std::uint32_t>(row.id) << 20;
        field.extraText = std::u16string(static_cast<std::size_t>(row.id) % 1024, u'x');
        for (std::int32_t key = -row.id % 40; key < 0; ++key)
            field.SetGroup(key * 100, scripts[-key % 4]);
        contacts[0].AddField(field);
    }
    contacts[1].Storage = INT32_MIN;
    contacts[2] = ContactOf("2147483647=|-1=\xEF\xBF\xBF");
    Write({&contacts[0], &contacts[1], &contacts[2]});
    QZSDriver file(path_);
    EXPECT_EQ(file->ReadFileHeader(), 1);
    for (const CContactItem& contact : contacts) {
        const CContactItem* const read = file.Next();
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(TextOf(*read), TextOf(contact));
    }
    EXPECT_EQ(file.Next(), nullptr);
}

TEST_F(QZSFile, CutAtEveryLengthOnlyWholeRecordsCome) {
    const std::string records[] = {kGroupedRecord, Int32(7) + Int32(0), kGroupedRecord};
    const std::string whole = kHeader + records[0] + records[1] + records[2];
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        folder_.Put("file.qzs", whole.substr(0, length));
        QZSDriver file(path_);
        ASSERT_EQ(file->ReadFileHeader(), length >= kHeader.size());
        ASSERT_EQ(file->Verify(), length == 0 ? VERIFY_NOT_READ_HEADER : length < 8 ? VERIFY_WRONG_FLAG : VERIFY_OK);
        std::size_t end = kHeader.size();
        for (const std::string& record : records) {
            end += record.size();
            ASSERT_EQ(file.Next() != nullptr, end <= length) << length;
            if (end > length) break;
        }
    }
    folder_.Put("file.qzs", kHeader + kGroupedRecord.substr(0, kGroupedRecord.size() - 1));
    QZSDriver file(path_);
    void* record = nullptr;
    EXPECT_EQ(file->ReadFileHeader(), 1);
    EXPECT_EQ(file->Read(&record), 0);
    EXPECT_EQ(ValuesOf(*static_cast<CContactItem*>(record)), "5=\xC3\x84\xE4\xB8\xAD") << "the field that was whole";
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
}

TEST_F(QZSFile, Headers) {
    struct Case {
        std::string bytes;
        std::int32_t read;
        std::int32_t verify;
    };
    const Case cases[] = {{kHeader, 1, VERIFY_OK},
                          {"<QZ-QZS>" + std::string(16, '\0'), 1, VERIFY_OK},  // of any day and version
                          {"<QZ-SMS>" + kHeader.substr(8), 1, VERIFY_WRONG_FLAG},
                          {"<qz-qzs>" + kHeader.substr(8), 1, VERIFY_WRONG_FLAG},
                          {"<QZ-QZS>!!" + kHeader.substr(10), 1, VERIFY_WRONG_FLAG},
                          {std::string(24, '\0'), 1, VERIFY_NOT_READ_HEADER},
                          {kHeader.substr(0, 23), 0, VERIFY_OK},  // the flag is whole
                          {"<QZ-Q", 0, VERIFY_WRONG_FLAG},
                          {"", 0, VERIFY_NOT_READ_HEADER}};
    CQZSFile file;
    const std::uint32_t flags = CFile::kModeReadWrite;
    EXPECT_EQ(file.Verify(), VERIFY_NOT_OPENED);
    folder_.Put("file.qzs", kHeader);
    ASSERT_EQ(file.Open(path_.c_str(), &flags), 1);
    EXPECT_EQ(file.Verify(), VERIFY_NOT_READ_HEADER);
    for (const Case& each : cases) {  // one object for all: a header leaves nothing to the next
        folder_.Put("file.qzs", each.bytes);
        ASSERT_EQ(file.Open(path_.c_str(), &flags), 1);
        EXPECT_EQ(file.ReadFileHeader(), each.read) << each.bytes;
        EXPECT_EQ(file.Verify(), each.verify) << each.bytes;
    }
    folder_.Put("file.qzs", std::string(24, '\0') + "kept");
    const orvale::StoppedClock clock(1280124015);
    EXPECT_EQ(file.ReadFileHeader() + file.WriteFileHeader(), 2);
    EXPECT_EQ(folder_.Get("file.qzs"), kHeader + "kept");
    EXPECT_EQ(file.GetPosition(), 24U);
}

TEST_F(QZSFile, FailsWithoutAFileARecordOrRoom) {
    const CContactItem contact = ContactOf("5=x");
    void* record = nullptr;
    CQZSFile closed;
    CFileInterface& face = closed;
    EXPECT_EQ(face.ReadFileHeader() + face.WriteFileHeader() + face.Read(&record) + face.Write(&contact), 0);
    EXPECT_EQ(record, nullptr);

    folder_.Put("file.qzs", kHeader);
    QZSDriver readOnly(path_);
    EXPECT_EQ(readOnly->ReadFileHeader(), 1);
    EXPECT_EQ(readOnly->Read(nullptr) + readOnly->Read(&record), 0);
    EXPECT_EQ(static_cast<CContactItem*>(record)->FieldCount(), 0U) << "no record is left, but the address is set";
    EXPECT_EQ(readOnly.Write(nullptr) + readOnly.Write(&contact) + readOnly->WriteFileHeader(), 0);
    EXPECT_EQ(folder_.Get("file.qzs"), kHeader);

    QZSDriver full(u"/dev/full", CFile::kModeWrite);
    EXPECT_EQ(full->WriteFileHeader() + full.Write(&contact), 0);
}

TEST_F(QZSFile, ReadingTakesNoMoreMemoryForMoreRecords) {
    folder_.Put("file.qzs", kHeader + Repeated(kGroupedRecord, 100));
    const std::size_t few = PeakOfReading<QZSDriver>(path_, 100);
    folder_.Put("file.qzs", kHeader + Repeated(kGroupedRecord, 10000));
    EXPECT_LT(PeakOfReading<QZSDriver>(path_, 10000), few + 16 * 1024);
}
