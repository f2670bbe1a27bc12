#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "frame/Log.h"
#include "records/GeneralSyncData.h"
#include "support/Child.h"
#include "support/FileDriver.h"
#include "support/ScratchFolder.h"

/// What the tests of the four suite documents share. The documents under tests/data were put together by hand.
namespace orvale::test {

inline std::string Sample(const std::string& name) {
    std::ifstream in(std::string(ORVALE_TEST_DATA "/") + name, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

template <class File, class Record, class Profile>
class SuiteDriver : public FileDriver<File, Record> {
 public:
    using FileDriver<File, Record>::FileDriver;

    enum class Header { kRead };

    /// With the header read too.
    SuiteDriver(const std::u16string& path, Header) : FileDriver<File, Record>(path) {
        EXPECT_EQ((*this)->ReadFileHeader(), 1);
    }

    const Profile* GetProfile() {
        const void* profile = nullptr;
        (*this)->GetProfile(&profile);
        return static_cast<const Profile*>(profile);
    }

    /// Writes a whole document, up to Close.
    void WriteAll(const Profile* profile, const std::vector<const Record*>& records) {
        (*this)->SetProfile(profile);
        EXPECT_EQ((*this)->WriteFileHeader(), 1);
        for (const Record* record : records)
            EXPECT_EQ(this->Write(record), 1);
        (*this)->Close();
    }

    /// Reads a document and writes what came of it under another path.
    void WriteAgain(const std::u16string& path) {
        SuiteDriver copy(path, CFile::kCreateReadWrite);
        EXPECT_EQ((*this)->ReadFileHeader(), 1);
        EXPECT_EQ((*this)->Verify(), VERIFY_OK);
        copy->SetProfile(GetProfile());
        EXPECT_EQ(copy->WriteFileHeader(), 1);
        while (const Record* record = this->Next())
            EXPECT_EQ(copy.Write(record), 1);
        copy->Close();
    }
};

inline std::string Without(std::string text, const std::string& part) {
    for (std::size_t found; (found = text.find(part)) != std::string::npos;)
        text.erase(found, part.size());
    return text;
}

/// The lines that a body writes to the log, without "ORVALE - " and the name of the class, and without addresses.
inline std::string LogOf(const std::string& className, const std::function<void()>& body) {
    const ChildResult result = InChild([&] {
        constexpr std::u16string_view kName = u"no module";
        constexpr std::int32_t kIsLibrary = 1;
        constexpr std::uint32_t kSwitch = orvale::kLogToDebugger;
        orvale::LogInit(&kName, &kIsLibrary, &kSwitch);
        body();
    });
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    std::string text = Without(Without(result.errors, "ORVALE - " + className + "::"), "\r");
    for (std::size_t found; (found = text.find("0x")) != std::string::npos;)
        text.erase(found, text.find_first_not_of("0123456789ABCDEF", found + 2) - found);
    return text;
}

inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t found = text.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return found != std::string::npos ? text.replace(found, from.size(), to) : text;
}

}  // namespace orvale::test
