#include "native/CALFile.h"

#include "native/RecordLayout.h"

using orvale::Operation;
using orvale::Require;

namespace {

// All lines say "Orvale". Running out of items is the common end of a file: a Read that fails has no line of its own.
constexpr orvale::NativeFormat kFormat = {
    .fileVersion = 101,
    .header = {.flag = "<QZ-CAL>", .dateOffset = 10, .versionOffset = 20, .version = 100},
    .open = u"Orvale - CCALFile::Open",
    .readFileHeader = {u"Orvale - CCALFile::ReadFileHeader", Operation::kBegin | Operation::kFinish},
    .verify = {u"Orvale - CCALFile::Verify", Operation::kBegin | Operation::kFinish},
    .read = {u"Orvale - CCALFile::Read", Operation::kBegin | Operation::kSucceeded | Operation::kFinish},
    .writeFileHeader = {u"Orvale - CCALFile::WriteFileHeader", Operation::kBegin | Operation::kFinish},
    .write = {u"Orvale - CCALFile::Write", Operation::kAll},
};

// No record is dumped: this is all that the log tells of one.
void LogCategory(std::int32_t category) {
    orvale::LogFormat(u"Category = %d\r\n", category);
}

}  // namespace

CCALFile::CCALFile() : NativeFile(kFormat) {}

CCALFile::~CCALFile() {
    CCALFile::Close();
}

void CCALFile::Close() {
    item_.Clear();
    orvale::LogText(u"Orvale - CCALFile::Close : Begin/Finish\r\n");
    CloseStream();
}

// Unlike the other formats this one logs the header that it writes.
std::int32_t CCALFile::WriteFileHeader() {
    return Operation(*this, kFormat.writeFileHeader).Run([&] {
        Require(IsOpened());
        header_.Fill(*this);
        LogHeader(kFormat.writeFileHeader);
        header_.Store(*this);
    });
}

void CCALFile::BeginRecord(void** record) {
    *record = &item_;
    item_.Clear();
}

void CCALFile::ReadRecord() {
    std::int32_t category = 0;
    orvale::LayoutReader reader(*this);
    orvale::VisitCalendar(reader, item_, category);
    if (item_.HasCategory()) item_.category = category;
    LogCategory(category);
}

void CCALFile::WriteRecord(const void* record) {
    const auto& item = *static_cast<const CCalendarItem*>(record);
    const std::int32_t category = item.HasCategory() ? item.category : 0;
    orvale::LayoutWriter writer(*this);
    orvale::VisitCalendar(writer, item, category);
    LogCategory(category);
}
