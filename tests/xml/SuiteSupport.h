#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <string>

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

inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t found = text.find(from);
    EXPECT_NE(found, std::string::npos) << from;
    return found != std::string::npos ? text.replace(found, from.size(), to) : text;
}

inline std::string Without(std::string text, const std::string& part) {
    for (std::size_t found; (found = text.find(part)) != std::string::npos;)
        text.erase(found, part.size());
    return text;
}

template <class FileClass, class Record, class Profile>
class SuiteTest : public testing::Test {
 protected:
    class Driver : public FileDriver<FileClass, Record> {
     public:
        using FileDriver<FileClass, Record>::FileDriver;

        const Profile* GetProfile() {
            const void* profile = nullptr;
            (*this)->GetProfile(&profile);
            return static_cast<const Profile*>(profile);
        }
    };

    /// The whole document of a profile and of records, up to Close.
    std::string Written(const Profile* profile, std::initializer_list<const Record*> records) {
        Driver file(path_, CFile::kCreateReadWrite);
        file->SetProfile(profile);
        EXPECT_EQ(file->WriteFileHeader(), 1);
        for (const Record* record : records)
            EXPECT_EQ(file.Write(record), 1);
        file->Close();
        return folder_.Get("file.xml");
    }

    /// What came of a document that was read, written again.
    std::string WrittenAgain(const std::string& document) {
        Driver file = Reading(document);
        Driver copy(folder_.Name("copy.xml"), CFile::kCreateReadWrite);
        EXPECT_EQ(file->ReadFileHeader(), 1);
        copy->SetProfile(file.GetProfile());
        EXPECT_EQ(copy->WriteFileHeader(), 1);
        while (const Record* record = file.Next())
            EXPECT_EQ(copy.Write(record), 1);
        copy->Close();
        return folder_.Get("copy.xml");
    }

    Driver Reading(const std::string& document) {
        folder_.Put("file.xml", document);
        return Driver(path_);
    }

    const ScratchFolder folder_;
    const std::u16string path_ = folder_.Name("file.xml");
};

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

/// The lines of an operation with an outcome, and of one without.
inline std::string Lines(const std::string& name, const std::string& outcome, const std::string& inner = {}) {
    return name + " : Begin\n" + inner + (outcome.empty() ? "" : name + " : " + outcome + "\n") + name + " : Finish\n";
}

}  // namespace orvale::test
