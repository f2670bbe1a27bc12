#pragma once

#include <type_traits>

#include "command/json/JsonDocument.h"
#include "native/CALFile.h"
#include "native/EMLFile.h"
#include "native/QZSFile.h"
#include "native/SMSFile.h"
#include "support/Cases.h"

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

}  // namespace orvale::test
