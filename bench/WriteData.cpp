#include <charconv>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string_view>

#include "CalendarAndMail.h"
#include "Contacts.h"
#include "native/CALFile.h"
#include "native/EMLFile.h"
#include "native/QZSFile.h"
#include "native/SMSFile.h"

/// Writes the native file of as many records as are asked for, which the command turns into every other format.
using namespace orvale::bench;

namespace {

template <class File, class Record>
bool WriteFile(const char* path, std::size_t count, void (*make)(std::size_t, Record&)) {
    File file;
    CFileInterface& face = file;
    const std::u16string name(path, path + std::strlen(path));
    const std::uint32_t flags = CFile::kCreateReadWrite;
    bool good = face.Open(name.c_str(), &flags) != 0 && face.WriteFileHeader() != 0;
    for (std::size_t i = 0; good && i < count; ++i) {
        Record record;
        make(i, record);
        good = face.Write(&record) != 0;
    }
    return good;
}

}  // namespace

int main(int count, char** arguments) {
    std::size_t records = 0;
    const std::string_view format = count == 4 ? arguments[1] : "";
    const std::string_view number = count == 4 ? arguments[2] : "";
    const auto parsed = std::from_chars(number.data(), number.data() + number.size(), records);
    const bool isNumber = !number.empty() && parsed.ec == std::errc() && parsed.ptr == number.data() + number.size();
    bool good = false;
    if (isNumber && format == "qzs") {
        good = WriteFile<CQZSFile>(arguments[3], records, MakeContact);
    } else if (isNumber && format == "cal") {
        good = WriteFile<CCALFile>(arguments[3], records, MakeItem);
    } else if (isNumber && format == "sms") {
        good = WriteFile<CSMSFile>(arguments[3], records, MakeMessage);
    } else if (isNumber && format == "eml") {
        good = WriteFile<CEMLFile>(arguments[3], records, MakeEmail);
    } else {
        std::cerr << "usage: orvale_bench_data qzs|cal|sms|eml RECORDS FILE\n";
        return 2;
    }
    if (!good) std::cerr << arguments[3] << " can't be written\n";
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
