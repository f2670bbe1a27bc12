#include "native/NativeFile.h"

namespace orvale {
namespace {

// A head such as "ORVALE - CQZSFile::Verify" without its first word.
std::u16string_view BehindModule(std::u16string_view head) {
    return head.substr(head.find(u' '));
}

std::u16string_view Reason(VerifyCode code) {
    switch (code) {
        case VERIFY_NOT_OPENED:
            return u"Not opened";
        case VERIFY_NOT_READ_HEADER:
            return u"Not read fileheader";
        default:
            return u"Wrong file flag";
    }
}

}  // namespace

NativeFile::NativeFile(const NativeFormat& format)
    : CFileObject(format.fileVersion, format.open), header_(format.header), format_(format) {}

std::int32_t NativeFile::ReadFileHeader() {
    return Operation(*this, format_.readFileHeader).Run([&] {
        Require(IsOpened());
        header_.Load(*this);
        LogHeader(format_.readFileHeader);
    });
}

void NativeFile::LogHeader(const OperationLines& operation) {
    if (!LogEnabled()) return;
    const std::u16string_view head = BehindModule(operation.head);
    LogFormat(u"Orvale%s : FileFlag[%s]\r\n", head, ToWide(header_.Flag()));
    LogFormat(u"Orvale%s : Version[%d]\r\n", head, header_.Version());
    if (header_.HasDate()) LogFormat(u"Orvale%s : Time[%s]\r\n", head, ToWide(header_.Date()));
}

std::int32_t NativeFile::Verify() {
    const Operation operation(*this, format_.verify);
    const VerifyCode code = header_.Judge(IsOpened());
    if (code != VERIFY_OK)
        LogFormat(u"Orvale%s : %s\r\n", BehindModule(format_.verify.head), Reason(code));
    else if ((format_.verify.words & Operation::kSucceeded) != 0)
        operation.Tell(u"Succeeded");
    return code;
}

std::int32_t NativeFile::Read(void** record) {
    return Operation(*this, format_.read).Run([&] {
        Require(IsOpened() && record != nullptr);
        BeginRecord(record);
        ReadRecord();
    });
}

std::int32_t NativeFile::WriteFileHeader() {
    return Operation(*this, format_.writeFileHeader).Run([&] {
        Require(IsOpened());
        header_.Fill(*this);
        header_.Store(*this);
    });
}

std::int32_t NativeFile::Write(const void* record) {
    return Operation(*this, format_.write).Run([&] {
        Require(IsOpened() && record != nullptr);
        WriteRecord(record);
    });
}

}  // namespace orvale
