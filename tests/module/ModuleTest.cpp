#include <gtest/gtest.h>
#include <stdio.h>
#include <stdlib.h>

#include <memory>
#include <set>

#include "module/LoadedModule.h"
#include "support/Child.h"
#include "support/FileDriver.h"

using namespace orvale::test;

namespace {

// The number and the file version of each format. A new one adds its row, or else its number isn't unknown below.
constexpr std::pair<FileType, std::int32_t> kFormats[] = {{0, 100}, {1, 100}, {2, 210}, {3, 210}, {4, 101},  {5, 101},
                                                          {6, 100}, {7, 100}, {8, 100}, {9, 100}, {10, 100}, {11, 100}};

class Module : public testing::Test {
 protected:
    CFileInterface* Create(FileType type) const {
        CFileInterface* object = nullptr;
        EXPECT_EQ(module_.create(&object, &type), 1);
        return object;
    }

    const LoadedModule module_;
    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file");
    const std::uint32_t read_ = CFile::kModeRead;
    const std::uint32_t write_ = CFile::kCreateReadWrite;
};

}  // namespace

TEST_F(Module, ExportsItsFourFunctionsAndNothingElse) {
    const std::unique_ptr<FILE, int (*)(FILE*)> names(popen("nm -D --defined-only " ORVALE_MODULE, "r"), &pclose);
    std::set<std::string> exported;
    char line[1024];
    while (fgets(line, sizeof line, names.get()) != nullptr)
        exported.insert(std::string(line).substr(std::string(line).rfind(' ') + 1));
    EXPECT_EQ(exported, (std::set<std::string>{"CreateObject\n", "QZCreateFileObject\n", "QZReleaseFileObject\n",
                                               "ReleaseObject\n"}));
}

TEST_F(Module, CreatesAndReleases) {
    const FileType type = 0;
    CFileInterface* object = nullptr;
    EXPECT_EQ(module_.create(nullptr, &type) + module_.create(&object, nullptr) + module_.release(nullptr), 0);
    EXPECT_EQ(module_.release(&object), 1);
    const auto next = static_cast<FileType>(std::size(kFormats));
    for (const FileType unknown : {-1, next, INT32_MIN, INT32_MAX})
        EXPECT_EQ(module_.create(&object, &unknown), 0);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(module_.library.Get<decltype(QZCreateFileObject)>("QZCreateFileObject")(&object, &type), 1);
    CFileInterface* const first = object;
    EXPECT_EQ(module_.create(&object, &type), 0);
    EXPECT_EQ(object, first);
    EXPECT_EQ(object->Open(path_.c_str(), &write_), 1);
    EXPECT_EQ(module_.library.Get<decltype(QZReleaseFileObject)>("QZReleaseFileObject")(&object), 1);
    EXPECT_EQ(object, nullptr);
    CFile file;
    EXPECT_EQ(file.Open(path_.c_str(), CFile::kShareExclusive, nullptr), 1) << "the object closed it";
}

TEST_F(Module, OperationsStandInTheirSlots) {
    for (const auto& [type, version] : kFormats) {
        CFileInterface* object = Create(type);
        EXPECT_EQ(Call(object, 23), 100) << type;
        EXPECT_EQ(Call(object, 24), version) << type;
        module_.release(&object);
    }
    CFileInterface* object = Create(0);
    const CContactItem contact = ContactOf("5=x");
    EXPECT_EQ(Call(object, 25, path_.c_str(), &write_), 1);
    EXPECT_EQ(Call(object, 30), 1);
    EXPECT_EQ(Call<std::uint64_t>(object, 5), 24U);
    EXPECT_EQ(Call(object, 31, &contact), 1);
    EXPECT_EQ(Call<std::uint64_t>(object, 14), 54U);
    Call<void>(object, 21);
    EXPECT_EQ(Call(object, 28), VERIFY_NOT_OPENED);
    EXPECT_EQ(Call(object, 10, path_.c_str(), std::uint32_t{CFile::kModeReadWrite}, nullptr), 1);
    EXPECT_EQ(Call(object, 27), 1);
    EXPECT_EQ(Call(object, 28), VERIFY_OK);
    void* record = nullptr;
    EXPECT_EQ(Call(object, 29, &record), 1);
    EXPECT_EQ(ValuesOf(*static_cast<CContactItem*>(record)), "5=x");

    EXPECT_EQ(Call<std::uint64_t>(object, 12, std::int64_t{0}, CFile::kBegin), 0U);
    Call<void>(object, 13, std::uint64_t{0});
    const std::u16string text = u"\u00E4;";
    const DateValue date(40385.25);
    const std::int32_t number = -2;
    Call<void>(object, 34, &text);
    for (const int slot : {36, 38, 42})
        Call<void>(object, slot, &number);
    Call<void>(object, 40, &date);
    Call<void>(object, 16, "ab", std::uint32_t{2});
    Call<void>(object, 20);
    EXPECT_EQ(Call<std::uint64_t>(object, 12, std::int64_t{0}, CFile::kBegin), 0U);
    std::u16string textBack;
    DateValue dateBack;
    char bytes[3] = {};
    EXPECT_EQ(Call(object, 33, &textBack), 1);
    for (const int slot : {35, 37, 41}) {
        std::int32_t back = 0;
        EXPECT_EQ(Call(object, slot, &back), 1);
        EXPECT_EQ(back, number);
    }
    EXPECT_EQ(Call(object, 39, &dateBack), 1);
    EXPECT_EQ(Call<std::uint32_t>(object, 15, bytes, std::uint32_t{3}), 2U);
    EXPECT_TRUE(textBack == text && dateBack.Value() == date.Value() && bytes == std::string("ab"));

    EXPECT_EQ(Call<std::u16string>(object, 6), u"file");
    EXPECT_EQ(Call<std::u16string>(object, 43).size(), 8U);
    EXPECT_EQ(Call<std::u16string>(object, 44, text.c_str()), u"\u00E4=3B");
    EXPECT_EQ(Call<std::u16string>(object, 45, u"=3B"), u";");
    textBack = Call<std::u16string>(object, 46, &date);
    EXPECT_EQ(textBack, u"20100726T060000Z");
    dateBack = DateValue();
    EXPECT_EQ(Call(object, 47, &textBack, &dateBack), 1);
    EXPECT_EQ(dateBack.Value(), date.Value());
    Call<void>(object, 9, u"/x/other.ext");
    EXPECT_EQ(Call<std::u16string>(object, 7) + Call<std::u16string>(object, 8), u"other/x/other.ext");
    Call<void>(object, 19);
    EXPECT_EQ(Call(object, 28), VERIFY_NOT_OPENED);
    module_.release(&object);
}

TEST_F(Module, ProfilesAreHandedOverByTheirSlots) {
    const CSMSProfile profile;
    const CSMSProfile* got = nullptr;
    CFileInterface* object = Create(9);
    EXPECT_EQ(Call(object, 25, path_.c_str(), &write_), 1);
    Call<void>(object, 26, &profile);
    Call<void>(object, 32, &got);
    ASSERT_NE(got, nullptr);
    EXPECT_EQ(got->dllname, u".dll");
    module_.release(&object);
}

TEST_F(Module, TextFilesAreInTheCodePageOfTheThread) {
    const CContactItem contact = ContactOf("5=\xE6\xBC\xA2\xC3\xBC|3002=\xE6\xBC\xA2\xEF\xBD\xB6");
    const ChildResult result = InChild([&] {  // decided once in a process
        setenv("ORVALE_CODEPAGE", "932", 1);
        CFileInterface* file = Create(3);
        EXPECT_EQ(file->Open(path_.c_str(), &write_) + file->Write(&contact), 2);
        void* record = nullptr;
        EXPECT_EQ(file->Open(path_.c_str(), &read_) + file->Read(&record), 2);
        EXPECT_EQ(ValuesOf(*static_cast<CContactItem*>(record)),
                  "1=\xE6\xBC\xA2?|5=\xE6\xBC\xA2?|3002=\xE6\xBC\xA2\xEF\xBD\xB6");
    });
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(folder_.Get("file").find("\r\nFN:\x8A\xBF?\r\nNOTE;ENCODING=QUOTED-PRINTABLE:=8A=BF\xB6\r\n"),
              std::string::npos);
}

TEST_F(Module, NothingAHostHandsOverDoesHarm) {
    const void* const none = nullptr;
    for (const auto& [type, version] : kFormats) {
        CFileInterface* object = Create(type);
        for (const std::uint32_t* flags : {static_cast<const std::uint32_t*>(nullptr), &write_, &read_}) {
            const bool parses = type >= 7 && type <= 10 && flags == &read_;  // what is no XML document
            EXPECT_EQ(Call(object, 25, path_.c_str(), flags), flags != nullptr && !parses) << type;
            for (const int slot : {32, 31, 30, 29, 28, 27, 26, 25}) {  // these throw nothing
                const std::int32_t result = Call(object, slot, none, &read_);
                EXPECT_TRUE(result == 0 || (slot != 25 && slot != 29 && slot != 31)) << type << ' ' << slot;
            }
            for (const int slot : {47, 44, 45, 46, 42, 41, 40, 39, 38, 37, 36, 35, 34, 33, 18, 17, 16, 15, 12, 11, 9}) {
                try {
                    if (slot >= 44 && slot <= 46)
                        Call<std::u16string>(object, slot, none);
                    else
                        Call(object, slot, none, std::uint32_t{3}, none);
                } catch (const std::exception&) {  // as the stream and the primitives tell a failure
                }
            }
            Call<void>(object, 21);
            Call<void>(object, 21);
        }
        EXPECT_EQ(module_.release(&object), 1);
    }
}
