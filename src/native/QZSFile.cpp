#include "native/QZSFile.h"

#include "frame/Operation.h"
#include "frame/RecordLog.h"
#include "native/RecordLayout.h"

using orvale::Operation;
using orvale::Require;

namespace {

constexpr orvale::NativeHeaderLayout kHeader{"<QZ-QZS>", 10, 20, 100};

}  // namespace

CQZSFile::CQZSFile() : CFileObject(100, u"ORVALE - CQZSFile::Open"), header_(kHeader) {}

CQZSFile::~CQZSFile() {
    CQZSFile::Close();
}

void CQZSFile::Close() {
    contact_.Clear();
    CloseStream();
}

std::int32_t CQZSFile::ReadFileHeader() {
    return Operation(*this, u"ORVALE - CQZSFile::ReadFileHeader", Operation::kBegin | Operation::kFinish).Run([&] {
        Require(IsOpened());
        header_.Load(*this);
        header_.Log(*this, u"Orvale - CQZSFile::ReadFileHeader");
    });
}

std::int32_t CQZSFile::Verify() {
    const Operation operation(*this, u"ORVALE - CQZSFile::Verify", Operation::kFinish);
    const VerifyCode code = header_.Judge(IsOpened());
    const std::u16string_view module = code == VERIFY_OK ? u"ORVALE" : u"Orvale";
    orvale::LogFormat(u"%s - CQZSFile::Verify : %s\r\n", module, orvale::VerifyReason(code));
    return code;
}

std::int32_t CQZSFile::Read(void** record) {
    return Operation(*this, u"ORVALE - CQZSFile::Read").Run([&] {
        Require(IsOpened() && record != nullptr);
        *record = &contact_;
        stock_.Clear(contact_);
        orvale::RecordReader reader(*this, &stock_);
        VisitContact(reader, contact_);
        orvale::LogContact(&contact_);
    });
}

std::int32_t CQZSFile::WriteFileHeader() {
    return Operation(*this, u"ORVALE - CQZSFile::WriteFileHeader", Operation::kFinish).Run([&] {
        Require(IsOpened());
        header_.Fill(*this);
        header_.Store(*this);
    });
}

std::int32_t CQZSFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CQZSFile::Write").Run([&] {
        Require(IsOpened() && record != nullptr);
        const auto& contact = *static_cast<const CContactItem*>(record);
        orvale::LogContact(&contact);
        orvale::RecordWriter writer(*this);
        VisitContact(writer, contact);
    });
}
