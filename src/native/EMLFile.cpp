#include "native/EMLFile.h"

#include "frame/RecordLog.h"
#include "native/RecordLayout.h"

using orvale::Operation;

namespace {

constexpr orvale::NativeFormat kFormat = {
    .fileVersion = 100,
    .header = {.flag = "<QZ-EML>", .dateOffset = 10, .versionOffset = 20, .version = 100},
    .open = u"ORVALE - CEMLFile::Open",
    .readFileHeader = {u"ORVALE - CEMLFile::ReadFileHeader", Operation::kBegin | Operation::kFinish},
    .verify = {u"ORVALE - CEMLFile::Verify", Operation::kSucceeded | Operation::kFinish},
    .read = {u"ORVALE - CEMLFile::Read", Operation::kAll},
    .writeFileHeader = {u"ORVALE - CEMLFile::WriteFileHeader", Operation::kFinish},
    .write = {u"ORVALE - CEMLFile::Write", Operation::kAll},
};

}  // namespace

CEMLFile::CEMLFile() : NativeFile(kFormat) {}

CEMLFile::~CEMLFile() {
    CEMLFile::Close();
}

void CEMLFile::Close() {
    email_.Reset();
    CloseStream();
}

void CEMLFile::BeginRecord(void** record) {
    *record = &email_;
    email_.Reset();
}

void CEMLFile::ReadRecord() {
    orvale::LayoutReader reader(*this);
    orvale::VisitEmail(reader, email_);
    orvale::LogEmail(&email_);
}

void CEMLFile::WriteRecord(const void* record) {
    const auto& email = *static_cast<const CEmailItem*>(record);
    orvale::LogEmail(&email);
    orvale::LayoutWriter writer(*this);
    orvale::VisitEmail(writer, email);
}
