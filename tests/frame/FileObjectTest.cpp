#include "frame/FileObject.h"

#include <gtest/gtest.h>

#include "platform/Clock.h"
#include "support/Cases.h"
#include "support/ScratchFolder.h"
#include "support/Zone.h"

using namespace orvale::test;

namespace {

// A format with nothing of its own: what is left are the primitives.
class PlainFile : public CFileObject {
 public:
    PlainFile() : CFileObject(77, u"ORVALE - PlainFile::Open") {}
    explicit PlainFile(const std::u16string& path, std::uint32_t flags = kModeRead) : PlainFile() {
        EXPECT_EQ(Open(path.c_str(), &flags), 1);
    }
    using CFileObject::Open;
    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override { CloseStream(); }
    std::int32_t Verify() override { return VERIFY_OK; }
    std::int32_t Read(void**) override { return 0; }
    std::int32_t Write(const void*) override { return 0; }
};

class FileObject : public testing::Test {
 protected:
    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file");
};

}  // namespace

TEST_F(FileObject, ReadsStrings) {
    for (const auto& each : Cases("strings.cases")) {
        folder_.Put("file", each[1]);
        PlainFile file(path_);
        std::u16string text = u"before";
        EXPECT_EQ(std::to_string(file.ReadString(&text)), each[2]) << each[0];
        EXPECT_EQ(orvale::ToUtf8(text), each[3]) << each[0];
        EXPECT_EQ(std::to_string(file.GetPosition()), each[4]) << each[0];
    }
}

TEST_F(FileObject, WritesNumbersDatesAndStringsOfAnyLength) {
    PlainFile file(path_, CFile::kCreateReadWrite);
    const std::int32_t number = -2;
    const std::uint32_t unsignedNumber = 0x89ABCDEF;
    const DateValue date(-1.25, DateValue::kInvalid);
    const std::u16string texts[] = {u"", u"a\u4E2D", std::u16string(2000, u'x')};
    file.WriteInt(&number);
    file.WriteUInt(&unsignedNumber);
    file.WriteLong(&number);
    file.WriteDate(&date);
    for (const std::u16string& text : texts)
        file.WriteString(&text);
    EXPECT_EQ(folder_.Get("file"), Int32(-2) + "\xEF\xCD\xAB\x89" + Int32(-2) + Int32(0) + Int32(0xBFF40000) +
                                       String(texts[0]) + String(texts[1]) + String(texts[2]));
    file.Seek(12, CFile::kBegin);
    DateValue back(0.0, DateValue::kNull);
    EXPECT_EQ(file.ReadDate(&back), 1);
    EXPECT_EQ(back.Value(), -1.25);
    EXPECT_EQ(back.GetStatus(), DateValue::kValid);
}

TEST_F(FileObject, NumbersThatAreCutOffStayAsTheyWere) {
    folder_.Put("file", Int32(-2) + "\1\2");
    PlainFile file(path_);
    std::int32_t number = 0;
    EXPECT_EQ(file.ReadInt(&number), 1);
    EXPECT_EQ(file.ReadInt(&number), 0);
    EXPECT_EQ(file.GetPosition(), 6U) << "two bytes are left, and are taken";
    EXPECT_EQ(file.ReadLong(&number), 0);
    EXPECT_EQ(number, -2);
    std::uint32_t unsignedNumber = 5;
    DateValue date(5.0, DateValue::kNull);
    file.Seek(0, CFile::kBegin);
    EXPECT_EQ(file.ReadDate(&date), 0);
    EXPECT_EQ(file.ReadUInt(&unsignedNumber), 0);
    EXPECT_EQ(unsignedNumber, 5U);
    EXPECT_TRUE(date.Value() == 5.0 && date.GetStatus() == DateValue::kNull);
}

TEST_F(FileObject, NullAddressesAndFilesThatFail) {
    PlainFile file(path_, CFile::kCreateReadWrite);
    EXPECT_EQ(file.ReadString(nullptr) + file.ReadInt(nullptr) + file.ReadUInt(nullptr) + file.ReadDate(nullptr) +
                  file.ReadLong(nullptr) + file.UtcTextToDate(nullptr, nullptr),
              0);
    file.WriteString(nullptr);
    file.WriteInt(nullptr);
    file.WriteDate(nullptr);
    EXPECT_EQ(file.EncodeQuotedPrintable(nullptr) + file.DecodeQuotedPrintable(nullptr) + file.DateToUtcText(nullptr),
              u"");
    EXPECT_EQ(file.GetLength(), 0U);
    PlainFile second;
    const std::uint32_t flags = CFile::kModeRead;
    EXPECT_EQ(second.Open(path_.c_str(), &flags), 0) << "nobody else opens its file";
    file.Close();
    EXPECT_EQ(file.Open(nullptr, &flags) + file.Open(path_.c_str(), nullptr), 0);
    std::u16string text = u"before";
    std::int32_t number = 3;
    EXPECT_EQ(file.ReadString(&text), 0);  // this one lets nothing through
    EXPECT_EQ(text, u"");
    EXPECT_THROW(file.ReadInt(&number), std::system_error);
    EXPECT_THROW(file.WriteInt(&number), std::system_error);
}

TEST_F(FileObject, Defaults) {
    PlainFile file;
    const void* profile = &file;
    file.SetProfile(profile);
    file.GetProfile(&profile);
    EXPECT_EQ(profile, &file);
    EXPECT_EQ(file.GetFileVersion(), 77);
    EXPECT_EQ(file.ReadFileHeader() + file.WriteFileHeader(), 2);
    const orvale::StoppedClock clock(1280188799);  // a second before midnight UTC
    const Zone zone("Asia/Kolkata");
    EXPECT_EQ(file.GetDateStamp(), u"20100726");
}
