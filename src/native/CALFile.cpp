#include "native/CALFile.h"

#include "frame/Operation.h"
#include "native/RecordLayout.h"

using orvale::Operation;
using orvale::Require;

// The lines of this class all say "Orvale". It dumps no record: the category is what it tells of one.

namespace {

constexpr orvale::NativeHeaderLayout kHeader{"<QZ-CAL>", 10, 20, 100};

void LogCategory(std::int32_t category) {
    orvale::LogFormat(u"Category = %d\r\n", category);
}

}  // namespace

CCALFile::CCALFile() : CFileObject(101, u"Orvale - CCALFile::Open"), header_(kHeader) {}

CCALFile::~CCALFile() {
    CCALFile::Close();
}

void CCALFile::Close() {
    item_.Clear();
    orvale::LogText(u"Orvale - CCALFile::Close : Begin/Finish\r\n");
    CloseStream();
}

std::int32_t CCALFile::ReadFileHeader() {
    constexpr std::u16string_view kHead = u"Orvale - CCALFile::ReadFileHeader";
    return Operation(*this, kHead, Operation::kBegin | Operation::kFinish).Run([&] {
        Require(IsOpened());
        header_.Load(*this);
        header_.Log(*this, kHead);
    });
}

std::int32_t CCALFile::Verify() {
    const Operation operation(*this, u"Orvale - CCALFile::Verify", Operation::kBegin | Operation::kFinish);
    const VerifyCode code = header_.Judge(IsOpened());
    if (code != VERIFY_OK) operation.Tell(orvale::VerifyReason(code));
    return code;
}

// Running out of items is the common end: a failure has no line of its own.
std::int32_t CCALFile::Read(void** record) {
    return Operation(*this, u"Orvale - CCALFile::Read", Operation::kAll & ~Operation::kFailed).Run([&] {
        Require(IsOpened() && record != nullptr);
        *record = &item_;
        item_.Clear();
        std::int32_t category = 0;
        orvale::RecordReader reader(*this);
        orvale::VisitCalendar(reader, item_, category);
        if (item_.HasCategory()) item_.category = category;
        LogCategory(category);
    });
}

std::int32_t CCALFile::WriteFileHeader() {
    constexpr std::u16string_view kHead = u"Orvale - CCALFile::WriteFileHeader";
    return Operation(*this, kHead, Operation::kBegin | Operation::kFinish).Run([&] {
        Require(IsOpened());
        header_.Fill(*this);
        header_.Log(*this, kHead);
        header_.Store(*this);
    });
}

std::int32_t CCALFile::Write(const void* record) {
    return Operation(*this, u"Orvale - CCALFile::Write").Run([&] {
        Require(IsOpened() && record != nullptr);
        const auto& item = *static_cast<const CCalendarItem*>(record);
        const std::int32_t category = item.HasCategory() ? item.category : 0;
        orvale::RecordWriter writer(*this);
        orvale::VisitCalendar(writer, item, category);
        LogCategory(category);
    });
}
