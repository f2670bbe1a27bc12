#include "native/QZSFile.h"

#include "frame/RecordLog.h"
#include "native/RecordLayout.h"

using orvale::Operation;

namespace {

constexpr orvale::NativeFormat kFormat = {
    .fileVersion = 100,
    .header = {.flag = "<QZ-QZS>", .dateOffset = 10, .versionOffset = 20, .version = 100},
    .open = u"ORVALE - CQZSFile::Open",
    .readFileHeader = {u"ORVALE - CQZSFile::ReadFileHeader", Operation::kBegin | Operation::kFinish},
    .verify = {u"ORVALE - CQZSFile::Verify", Operation::kSucceeded | Operation::kFinish},
    .read = {u"ORVALE - CQZSFile::Read", Operation::kAll},
    .writeFileHeader = {u"ORVALE - CQZSFile::WriteFileHeader", Operation::kFinish},
    .write = {u"ORVALE - CQZSFile::Write", Operation::kAll},
};

}  // namespace

CQZSFile::CQZSFile() : NativeFile(kFormat) {}

CQZSFile::~CQZSFile() {
    CQZSFile::Close();
}

void CQZSFile::Close() {
    contact_.Clear();
    CloseStream();
}

void CQZSFile::BeginRecord(void** record) {
    *record = &contact_;
    stock_.Clear(contact_);
}

void CQZSFile::ReadRecord() {
    orvale::LayoutReader reader(*this, &stock_);
    orvale::VisitContact(reader, contact_, [](std::int32_t storage) {
        orvale::LogFormat(u"ORVALE - CQZSFile::Read : Location[%d]\r\n", storage);
    });
    orvale::LogContact(&contact_);
}

void CQZSFile::WriteRecord(const void* record) {
    const auto& contact = *static_cast<const CContactItem*>(record);
    orvale::LogContact(&contact);
    orvale::LayoutWriter writer(*this);
    orvale::VisitContact(writer, contact, [](std::int32_t) {});
}
