#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <type_traits>

#include "command/json/JsonDocument.h"
#include "native/CALFile.h"
#include "native/EMLFile.h"
#include "native/QZSFile.h"
#include "native/SMSFile.h"
#include "platform/Clock.h"
#include "support/Cases.h"
#include "support/FileDriver.h"
#include "support/SystemCalls.h"

/// The native files: a record with a value of its own in each member that the file keeps, and by hand the bytes that it
/// has there.
namespace orvale::test {

constexpr std::time_t kDayOfWriting = 1280124015;  // 26 July 2010

template <class FileType, class RecordType, int kRow>
struct NativeSample {
    using File = FileType;
    using Record = RecordType;
    static constexpr bool kIsSms = std::is_same_v<File, CSMSFile>;
    static inline const std::vector<std::string> kCase = Cases("native.cases").at(kRow);
    static inline const std::string kHeader = kCase.at(1), kBytes = kCase.at(2), kEmpty = kCase.at(3);

    static Record Sample() {
        const std::string path = ORVALE_TEST_DATA "/native-" + kCase.at(0) + ".json";
        Record record;
        EXPECT_TRUE(JsonDocument(path, path).Next(record));
        return record;
    }
    static void Clear(Record& record) {
        if constexpr (requires { record.Clear(); })
            record.Clear();
        else
            record.Reset();
    }
};

using Contacts = NativeSample<CQZSFile, CContactItem, 0>;
using Calendar = NativeSample<CCALFile, CCalendarItem, 1>;
using Email = NativeSample<CEMLFile, CEmailItem, 2>;
using Sms = NativeSample<CSMSFile, CSMSItem, 3>;

/// What the tests of the native files do with them.
template <class Format>
class Native : public testing::Test {
 protected:
    using Record = typename Format::Record;
    using Driver = FileDriver<typename Format::File, Record>;

    /// The bytes of a file with these records, each written in one system call.
    std::string Written(std::initializer_list<const Record*> records) const {
        Driver file(folder_.Name("out"), CFile::kCreateReadWrite);
        EXPECT_EQ(file->WriteFileHeader(), 1);
        EXPECT_EQ(file->Verify(), VERIFY_OK);
        for (const Record* const record : records) {
            const WriteCalls calls;
            EXPECT_EQ(file.Write(record), 1);
            EXPECT_EQ(calls.Count(), 1U);
        }
        file->Close();
        return folder_.Get("out");
    }

    /// A file with these records, its header read.
    std::unique_ptr<Driver> Reading(const std::string& records) const {
        folder_.Put("in", Format::kHeader + records);
        auto file = std::make_unique<Driver>(folder_.Name("in"));
        EXPECT_EQ((*file)->ReadFileHeader(), 1);
        return file;
    }

    const ScratchFolder folder_;
    const StoppedClock clock_{kDayOfWriting};
};

}  // namespace orvale::test
