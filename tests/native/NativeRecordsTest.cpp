#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "native/NativeSamples.h"

using namespace orvale::test;

namespace {

using CALFile = Native<Calendar>;
using EMLFile = Native<Email>;
using Formats = testing::Types<Contacts, Calendar, Email, Sms>;
TYPED_TEST_SUITE(Native, Formats);

}  // namespace

TYPED_TEST(Native, WritesExactlyTheseBytesAndReadsThemBack) {
    const std::string records = TypeParam::kBytes + TypeParam::kEmpty;
    const typename TypeParam::Record sample = TypeParam::Sample();
    typename TypeParam::Record cleared = sample;
    TypeParam::Clear(cleared);
    EXPECT_EQ(this->Written({&sample, &cleared}), TypeParam::kHeader + records);

    const auto file = this->Reading(records);
    const auto* const read = file->Next();
    ASSERT_NE(read, nullptr);
    const typename TypeParam::Record first = *read;
    EXPECT_EQ(file->Next(), read) << "always the same record, refilled";
    EXPECT_EQ(this->Written({&first, read}), TypeParam::kHeader + records);
    EXPECT_EQ(file->Next(), nullptr);

    (*file)->Close();
    const auto again = this->Reading(records);
    const auto* const last = again->Next();
    (*again)->Close();
    EXPECT_EQ(this->Written({last}), TypeParam::kHeader + TypeParam::kEmpty) << "it ends with its file";
}

TYPED_TEST(Native, Headers) {
    const std::string& good = TypeParam::kHeader;
    std::string other = good;
    other[4] = 'x';
    std::string lower = good;
    lower[1] = 'q';
    const std::int32_t shortOne = TypeParam::kIsSms ? VERIFY_NOT_READ_HEADER : VERIFY_OK;
    const std::pair<std::string, std::int32_t> cases[] = {
        {good.substr(0, good.size() - 4) + Int32(-7), VERIFY_OK},  // any version
        {other, VERIFY_WRONG_FLAG},
        {lower, VERIFY_WRONG_FLAG},
        {good.substr(0, 5), TypeParam::kIsSms ? VERIFY_NOT_READ_HEADER : VERIFY_WRONG_FLAG},
        {good.substr(0, 8) + "!" + good.substr(9), VERIFY_WRONG_FLAG},
        {std::string(good.size(), '\0'), VERIFY_NOT_READ_HEADER},
        {good.substr(0, good.size() - 1), shortOne},
        {"", VERIFY_NOT_READ_HEADER},
    };
    for (const auto& [bytes, code] : cases) {
        this->folder_.Put("in", bytes);
        typename TestFixture::Driver file(this->folder_.Name("in"));
        EXPECT_EQ(file->Verify(), VERIFY_NOT_READ_HEADER);
        const bool judged = !TypeParam::kIsSms || code == VERIFY_OK;
        EXPECT_EQ(file->ReadFileHeader(), judged && bytes.size() >= good.size()) << bytes;
        EXPECT_EQ(file->Verify(), code) << bytes;
        file->Close();
        EXPECT_EQ(file->Verify(), VERIFY_NOT_OPENED);
    }
}

TYPED_TEST(Native, CutAtEveryLength) {
    const std::string& record = TypeParam::kBytes;
    for (std::size_t length = 0; length < record.size(); ++length) {
        const auto file = this->Reading(record + record.substr(0, length));
        ASSERT_NE(file->Next(), nullptr);
        ASSERT_EQ(file->Next() != nullptr, TypeParam::kIsSms && length > 0) << length;  // SMS hands out the torso
        ASSERT_EQ(file->Next(), nullptr) << length;
    }
}

// Wherever they stand: reading ends, and no record comes out of nothing.
TYPED_TEST(Native, NumbersOutOfRange) {
    for (const std::int64_t number : {std::int64_t{INT32_MIN}, std::int64_t{-1}, std::int64_t{2000000000}}) {
        for (std::size_t offset = 0; offset + 4 <= TypeParam::kBytes.size(); offset += 2) {
            std::string record = TypeParam::kBytes;
            const auto file = this->Reading(record.replace(offset, 4, Int32(number)));
            std::size_t records = 0;
            while (file->Next() != nullptr && records <= record.size())
                ++records;
            ASSERT_LE(records, record.size() / 4) << number << " at " << offset;
        }
    }
}

TEST_F(CALFile, CountsOfFields) {
    const std::string fields = Calendar::kBytes.substr(8, 30);
    const std::string rest = Calendar::kBytes.substr(38);
    for (const std::int64_t count : {-1, 0, 3, 2000000000}) {
        const auto file = Reading(Int32(1) + Int32(count) + (count > 0 ? fields : rest));
        void* record = nullptr;
        EXPECT_EQ((*file)->Read(&record), count <= 0) << count;
        const auto& item = *static_cast<const CCalendarItem*>(record);
        EXPECT_EQ(item.itemType, 1);
        EXPECT_EQ(item.fields.size(), count > 0 ? 2U : 0U) << "what came before the break";
        EXPECT_LT(item.fields.capacity(), 10U);
    }
}

TEST_F(CALFile, ARecordOfTheOlderLayoutHasCategoryZeroInTheFile) {
    CCalendarItem item = Calendar::Sample();
    item.version = 100;
    item.fields.push_back(nullptr);  // which isn't counted
    EXPECT_EQ(Written({&item}), Calendar::kHeader + Calendar::kBytes.substr(0, Calendar::kBytes.size() - 4) + Int32(0));
}

TEST_F(CALFile, ADateTravelsAsTheDoubleThatItIs) {
    using Limits = std::numeric_limits<double>;
    for (const double number : {std::bit_cast<double>(0x7FF8000000001234), Limits::infinity(), -Limits::infinity(),
                                1e300, -657435.0, -0.0, Limits::denorm_min()}) {
        CCalendarItem item;
        item.dtend = DateValue(number, DateValue::kNull);
        const auto file = Reading(Written({&item}).substr(Calendar::kHeader.size()));
        const CCalendarItem* const read = file->Next();
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(read->dtend.Value()), std::bit_cast<std::uint64_t>(number)) << number;
        EXPECT_EQ(read->dtend.GetStatus(), DateValue::kValid);
    }
}

TEST_F(EMLFile, LongestStringAndCountsOfAttachments) {
    CEmailItem email;
    for (const std::size_t units : {1023U, 1024U}) {  // both can be written
        email.body = std::u16string(units, u'x');
        EXPECT_EQ(Reading(Written({&email}).substr(24))->Next() != nullptr, units == 1023) << units;
    }
    for (const std::int64_t number : {-1, 2000000000}) {
        std::string record = Email::kBytes;
        const auto file = Reading(Email::kBytes + record.replace(record.size() - 40, 4, Int32(number)));
        void* address = nullptr;
        EXPECT_EQ((*file)->Read(&address), 1);
        (*file)->Read(&address);
        const auto& read = *static_cast<const CEmailItem*>(address);
        EXPECT_EQ(read.subject, u"h\u4E2D");
        EXPECT_EQ(read.accessory.empty(), number < 0) << "nothing of the record before is left";
        EXPECT_LT(read.accessory.capacity(), 10U);
    }
}
