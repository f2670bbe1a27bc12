#include "native/EMLFile.h"

#include "frame/Operation.h"
#include "frame/RecordLog.h"
#include "native/RecordLayout.h"

using orvale::Operation;
using orvale::Require;

namespace {

constexpr orvale::NativeHeaderLayout kHeader{"<QZ-EML>", 10, 20, 100};

}  // namespace

CEMLFile::CEMLFile() : CFileObject(100, u"ORVALE - CEMLFile::Open"), header_(kHeader) {}

CEMLFile::~CEMLFile() {
    CEMLFile::Close();
}

void CEMLFile::Close() {
    email_.Reset();
    CloseStream();
}

std::int32_t CEMLFile::ReadFileHeader() {
    return Operation(*this, u"ORVALE - CEMLFile::ReadFileHeader", Operation::kBegin | Operation::kFinish).Run([&] {
        Require(IsOpened());
        header_.Load(*this);
        header_.Log(*this, u"Orvale - CEMLFile::ReadFileHeader");
    });
}

std::int32_t CEMLFile::Verify() {
    const Operation operation(*this, u"ORVALE - CEMLFile::Verify", Operation::kFinish);
    const VerifyCode code = header_.Judge(IsOpened());
    const std::u16string_view module = code == VERIFY_OK ? u"ORVALE" : u"Orvale";
    orvale::LogFormat(u"%s - CEMLFile::Verify : %s\r\n", module, orvale::VerifyReason(code));
    return code;
}

std::int32_t CEMLFile::Read(void** record) {
    return Operation(*this, u"ORVALE - CEMLFile::Read").Run([&] {
        Require(IsOpened() && record != nullptr);
        *record = &email_;
        email_.Reset();
        orvale::RecordReader reader(*this);
        orvale::VisitEmail(reader, email_);
        orvale::LogEmail(&email_);
    });
}

std::int32_t CEMLFile::WriteFileHeader() {
    return Operation(*this, u"ORVALE - CEMLFile::WriteFileHeader", Operation::kFinish).Run([&] {
        Require(IsOpened());
        header_.Fill(*this);
        header_.Store(*this);
    });
}

std::int32_t CEMLFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CEMLFile::Write").Run([&] {
        Require(IsOpened() && record != nullptr);
        const auto& email = *static_cast<const CEmailItem*>(record);
        orvale::LogEmail(&email);
        orvale::RecordWriter writer(*this);
        orvale::VisitEmail(writer, email);
    });
}
