#include "text/VCalendarFile.h"

#include "frame/Operation.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "records/VCalendarKeys.h"

using orvale::AddProperty;
using orvale::EqualsNoCase;
using orvale::Operation;
using orvale::Require;
using orvale::TakeToken;
using orvale::Trim;

namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kCalendarBegin = u"BEGIN:VCALENDAR";
constexpr std::u16string_view kProduct = u"PRODID:";
constexpr std::u16string_view kVersion = u"VERSION:1.0";
constexpr std::u16string_view kEventBegin = u"BEGIN:VEVENT";
constexpr std::u16string_view kEventEnd = u"END:VEVENT";
constexpr std::u16string_view kCalendarEnd = u"END:VCALENDAR";

// A soft line break of quoted-printable ends its line in "=".
std::u16string_view WithoutSoftBreak(std::u16string_view text) {
    if (text.ends_with(u'=')) text.remove_suffix(1);
    return text;
}

// As many bytes as the file is long, so that a second Read finds too few and fails. The length is compared with, never
// allocated by: bytes are kept as they come, and none from the first zero byte on, where the text ends. What isn't a
// regular file has no length, and with it no calendar.
std::string ReadWholeFile(CFile& file) {
    const std::uint64_t length = file.GetLength();
    Require(length > kCalendarBegin.size() + kCalendarEnd.size());
    std::string bytes;
    std::uint64_t got = 0;
    for (bool ended = false; got < length && !file.AtEnd();) {
        const std::string_view ahead = file.Ahead().substr(0, length - got);
        if (!ended) bytes.append(ahead.substr(0, ahead.find('\0')));
        ended = bytes.size() < got + ahead.size();
        got += ahead.size();
        file.Skip(ahead.size());
    }
    Require(got == length);
    return bytes;
}

}  // namespace

CVCalendarFile::CVCalendarFile() : CFileObject(100, u"ORVALE - CVCalendarFile::Open") {}

CVCalendarFile::~CVCalendarFile() {
    CVCalendarFile::Close();
}

void CVCalendarFile::Close() {
    item_.Clear();
    CloseStream();
}

std::int32_t CVCalendarFile::Verify() {
    const Operation operation(*this, u"ORVALE - CVCalendarFile::Verify", Operation::kBegin | Operation::kFinish);
    if (IsOpened()) return VERIFY_OK;
    orvale::LogText(u"Orvale - CVCalendarFile::Verify : Not opened\r\n");
    return VERIFY_NOT_OPENED;
}

// ---- reading

std::int32_t CVCalendarFile::Read(void** record) {
    return Operation(*this, u"ORVALE - CVCalendarFile::Read").Run([&] {
        Require(IsOpened() && record != nullptr);
        *record = &item_;
        item_.Clear();
        BuildCalendarItem(ParseCalendarText(ReadCalendarText()));
    });
}

std::u16string CVCalendarFile::ReadCalendarText() {
    const std::u16string text = ToWide(ReadWholeFile(*this));
    std::u16string_view rest = text;
    Require(EqualsNoCase(Trim(TakeToken(rest, kLineEnd)), kCalendarBegin));
    std::u16string_view version = Trim(TakeToken(rest, kLineEnd));
    if (version.find(kProduct) != std::u16string_view::npos) version = TakeToken(rest, kLineEnd);  // not trimmed
    Require(EqualsNoCase(version, kVersion));
    return std::u16string(Trim(rest));
}

VCalPropertyList CVCalendarFile::ParseCalendarText(std::u16string_view text) {
    VCalPropertyList list;
    // The text is trimmed: behind the last property exactly the closing line remains. One that more follows is a line
    // like any other.
    while (!text.empty() && !EqualsNoCase(text, kCalendarEnd)) {
        const std::u16string_view line = TakeToken(text, kLineEnd);
        if (!ParseCalendarLine(line, list) && !list.empty()) list.back().value += WithoutSoftBreak(line);
    }
    return list;
}

// False for a line without a key of the table: it belongs to the value before it.
bool CVCalendarFile::ParseCalendarLine(std::u16string_view line, VCalPropertyList& list) {
    const std::int32_t id = orvale::GetVCalendarPropertyId(Trim(TakeToken(line, u":")));
    if (id == orvale::PROPERTY_UNKNOWN) return false;
    AddProperty(orvale::IsVCalendarField(id) ? WithoutSoftBreak(line) : line, id, list);
    return true;
}

void CVCalendarFile::BuildCalendarItem(const VCalPropertyList& list) {
    const auto setDate = [&](DateValue& date, const std::u16string& value) {
        if (UtcTextToDate(&value, &date) == 0) item_.operation = OPERATION_MODIFY;
    };
    for (const auto& [id, value] : list) {
        if (id == orvale::kVCalendarStart) {
            setDate(item_.dtstart, value);
        } else if (id == orvale::kVCalendarEnd) {
            setDate(item_.dtend, value);
        } else if (id == orvale::kVCalendarPriority) {
            item_.priority = orvale::ToNumber(value);
        } else if (id == orvale::kVCalendarBegin) {
            item_.itemType = PHONE_EVENT_TYPE;
        } else if (orvale::IsVCalendarField(id)) {
            auto field = std::make_unique<CCalendarField>();
            field->Type = id;
            field->Data = DecodeQuotedPrintable(value.c_str());
            item_.fields.push_back(std::move(field));
        }
    }
}

// ---- writing

std::int32_t CVCalendarFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CVCalendarFile::Write").Run([&] {
        Require(IsOpened() && record != nullptr);
        WriteNarrow(ComposeCalendarText(MapCalendarItem(*static_cast<const CCalendarItem*>(record))));
    });
}

VCalPropertyList CVCalendarFile::MapCalendarItem(const CCalendarItem& item) {
    VCalPropertyList list;
    AddProperty(DateToUtcText(&item.dtstart), orvale::kVCalendarStart, list);
    AddProperty(DateToUtcText(&item.dtend), orvale::kVCalendarEnd, list);
    AddProperty(orvale::Format(u"%d", item.priority), orvale::kVCalendarPriority, list);
    for (const auto& field : item.fields)
        if (field && orvale::IsVCalendarField(field->Type)) AddProperty(field->Data, field->Type, list);
    return list;
}

std::u16string CVCalendarFile::ComposeCalendarText(const VCalPropertyList& list) {
    std::u16string text;
    const auto line = [&](std::u16string_view head, std::u16string_view value = {}) {
        text.append(head).append(value).append(kLineEnd);
    };
    line(kCalendarBegin);
    line(kProduct);
    line(kVersion);
    line(kEventBegin);  // a todo too: the format knows no kind
    for (const auto& [id, value] : list) {
        const orvale::VCalendarPropertyRow& row = *orvale::FindVCalendarProperty(id);
        text.append(row.key).append(u":");
        line(row.quotedPrintable ? EncodeQuotedPrintable(value.c_str()) : value);
    }
    line(kEventEnd);
    line(kCalendarEnd);
    return text;
}
