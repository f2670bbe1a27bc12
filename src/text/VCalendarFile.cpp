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

const orvale::VCalendarPropertyRow* FindProperty(std::int32_t id) {
    for (const orvale::VCalendarPropertyRow& row : orvale::kVCalendarProperties)
        if (row.id == id) return &row;
    return nullptr;
}

// The properties whose values are fields of an item are those in quoted-printable.
bool IsField(std::int32_t id) {
    const orvale::VCalendarPropertyRow* const row = FindProperty(id);
    return row != nullptr && row->quotedPrintable;
}

// A soft line break of quoted-printable ends its line in "=".
std::u16string_view WithoutSoftBreak(std::u16string_view text) {
    if (text.ends_with(u'=')) text.remove_suffix(1);
    return text;
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
        std::u16string text;
        Require(ReadCalendarText(text) != 0);
        VCalPropertyList list;
        ParseCalendarText(text, list);
        BuildCalendarItem(item_, list);
    });
}

// As many bytes are wanted as the file is long, so that a second Read finds too few and ends the reading. The length is
// compared with, never allocated by: bytes are kept as they come, and none from the first zero byte on, where the text
// ends. What isn't a regular file has no length, and with it no calendar.
std::int32_t CVCalendarFile::ReadCalendarText(std::u16string& text) {
    const std::uint64_t length = GetLength();
    if (length <= kCalendarBegin.size() + kCalendarEnd.size()) return 0;
    std::string bytes;
    std::uint64_t got = 0;
    for (bool ended = false; got < length && !AtEnd();) {
        const std::string_view ahead = Ahead().substr(0, length - got);
        if (!ended) bytes.append(ahead.substr(0, ahead.find('\0')));
        ended = bytes.size() < got + ahead.size();
        got += ahead.size();
        Skip(ahead.size());
    }
    if (got < length) return 0;

    const std::u16string wide = ToWide(bytes);
    std::u16string_view rest = wide;
    if (!EqualsNoCase(Trim(TakeToken(rest, kLineEnd)), kCalendarBegin)) return 0;
    std::u16string_view version = Trim(TakeToken(rest, kLineEnd));
    if (version.find(kProduct) != std::u16string_view::npos) version = TakeToken(rest, kLineEnd);  // not trimmed
    if (!EqualsNoCase(version, kVersion)) return 0;
    text = Trim(rest);
    return 1;
}

void CVCalendarFile::ParseCalendarText(std::u16string_view text, VCalPropertyList& list) {
    // The text is trimmed: behind the last property exactly the closing line remains. One that more follows is a line
    // like any other.
    while (!text.empty() && !EqualsNoCase(text, kCalendarEnd)) {
        const std::u16string_view line = TakeToken(text, kLineEnd);
        if (ParseCalendarLine(line, list) == 0 && !list.empty()) list.back().value += WithoutSoftBreak(line);
    }
}

// 0 for a line without a key of the table: it belongs to the value before it.
std::int32_t CVCalendarFile::ParseCalendarLine(std::u16string_view line, VCalPropertyList& list) {
    const std::int32_t id = GetPropertyId(Trim(TakeToken(line, u":")));
    if (id == orvale::PROPERTY_UNKNOWN) return 0;
    AddProperty(IsField(id) ? WithoutSoftBreak(line) : line, id, list);
    return 1;
}

std::int32_t CVCalendarFile::GetPropertyId(std::u16string_view key) {
    return orvale::GetVCalendarPropertyId(key);
}

void CVCalendarFile::BuildCalendarItem(CCalendarItem& item, const VCalPropertyList& list) {
    for (const VCalProperty& property : list) {
        if (property.id == orvale::kVCalendarStart || property.id == orvale::kVCalendarEnd) {
            DateValue& date = property.id == orvale::kVCalendarStart ? item.dtstart : item.dtend;
            if (UtcTextToDate(&property.value, &date) == 0) item.operation = OPERATION_MODIFY;
        } else if (property.id == orvale::kVCalendarPriority) {
            item.priority = orvale::ToNumber(property.value);
        } else if (property.id == orvale::kVCalendarBegin) {
            item.itemType = PHONE_EVENT_TYPE;
        } else if (IsField(property.id)) {
            auto field = std::make_unique<CCalendarField>();
            field->Type = property.id;
            field->Data = DecodeQuotedPrintable(property.value.c_str());
            item.fields.push_back(std::move(field));
        }
    }
}

// ---- writing

std::int32_t CVCalendarFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CVCalendarFile::Write").Run([&] {
        Require(IsOpened());
        VCalPropertyList list;
        std::u16string text;
        Require(MapCalendarItem(static_cast<const CCalendarItem*>(record), list) != 0);
        ComposeCalendarText(text, list);
        WriteCalendarText(text);
    });
}

std::int32_t CVCalendarFile::MapCalendarItem(const CCalendarItem* item, VCalPropertyList& list) {
    if (item == nullptr) return 0;
    AddProperty(DateToUtcText(&item->dtstart), orvale::kVCalendarStart, list);
    AddProperty(DateToUtcText(&item->dtend), orvale::kVCalendarEnd, list);
    AddProperty(orvale::Format(u"%d", item->priority), orvale::kVCalendarPriority, list);
    for (const auto& field : item->fields)
        if (field && IsField(field->Type)) AddProperty(field->Data, field->Type, list);
    return 1;
}

void CVCalendarFile::ComposeCalendarText(std::u16string& text, const VCalPropertyList& list) {
    const auto line = [&](std::u16string_view head, std::u16string_view value = {}) {
        text.append(head).append(value).append(kLineEnd);
    };
    text.clear();
    line(kCalendarBegin);
    line(kProduct);
    line(kVersion);
    line(kEventBegin);  // a todo too: the format knows no kind
    for (const VCalProperty& property : list) {
        const orvale::VCalendarPropertyRow& row = *FindProperty(property.id);
        text.append(row.key).append(u":");
        line(row.quotedPrintable ? EncodeQuotedPrintable(property.value.c_str()) : property.value);
    }
    line(kEventEnd);
    line(kCalendarEnd);
}

void CVCalendarFile::WriteCalendarText(std::u16string_view text) {
    const std::string bytes = ToNarrow(text);
    CFile::Write(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}
