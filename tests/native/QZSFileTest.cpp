#include "native/NativeSamples.h"
#include "support/Memory.h"

using namespace orvale::test;

namespace {

using QZSFile = Native<Contacts>;

}  // namespace

TEST_F(QZSFile, ANullFieldIsCountedWithoutBytes) {
    CContactItem contact = ContactOf("100=1");
    contact.fields.push_back(nullptr);
    EXPECT_EQ(Written({&contact}),
              Contacts::kHeader + Int32(0) + Int32(2) + Int32(100) + String(u"1") + std::string(12, '\0'));
}

TEST_F(QZSFile, CountsAndLengthsOutOfRange) {
    const std::size_t last = Contacts::kBytes.size() - 4;  // the count of the second field's pairs
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
            const auto file = Reading(std::string(Contacts::kBytes).replace(offset, 4, Int32(value)));
            EXPECT_EQ(file->Next() != nullptr, comes) << offset << ' ' << value;
            while (file->Next() != nullptr) {  // what is left may pass for records; it must only end
            }
        }
    }
    const auto file = Reading(Contacts::kBytes.substr(0, Contacts::kBytes.size() - 1));
    void* record = nullptr;
    EXPECT_EQ((*file)->Read(&record), 0);
    EXPECT_EQ(ValuesOf(*static_cast<CContactItem*>(record)), "5=\xC3\x84\xE4\xB8\xAD") << "the field that was whole";
}

TEST_F(QZSFile, AHeaderIsWrittenInItsPlace) {
    folder_.Put("in", std::string(24, '\0') + "kept");
    Driver file(folder_.Name("in"), CFile::kModeReadWrite);
    EXPECT_EQ(file->ReadFileHeader() + file->WriteFileHeader(), 2);
    EXPECT_EQ(folder_.Get("in"), Contacts::kHeader + "kept");
    EXPECT_EQ(file->GetPosition(), 24U);
}

TEST_F(QZSFile, ReadingTakesNoMoreMemoryForMoreRecords) {
    folder_.Put("in", Contacts::kHeader + Repeated(Contacts::kBytes, 100));
    const std::size_t few = PeakOfReading<Driver>(folder_.Name("in"), 100);
    folder_.Put("in", Contacts::kHeader + Repeated(Contacts::kBytes, 10000));
    EXPECT_LT(PeakOfReading<Driver>(folder_.Name("in"), 10000), few + 16 * 1024);
}
