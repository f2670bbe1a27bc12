// The way out of MboxMessage.h: a message of an email.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>

#include "command/exchange/GMimeLibrary.h"
#include "command/exchange/MailNames.h"
#include "command/exchange/MboxMessage.h"
#include "command/exchange/PercentText.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using namespace mail;

// "Mon, 17 Mar 2008 07:02:11 +0100", the time of the process's zone.
std::string DateText(const CalendarFields& local, const CalendarFields& utc) {
    const double days = DateValue::FromFields(local).Value() - DateValue::FromFields(utc).Value();
    const int minutes = static_cast<int>(days * 24 * 60 + (days < 0 ? -0.5 : 0.5));
    char text[64];
    std::snprintf(text, sizeof text, "%s, %d %s %04d %02d:%02d:%02d %c%02d%02d", kDays[DayOfWeek(local)], local.day,
                  kMonths[local.month - 1], local.year, local.hour, local.minute, local.second, minutes < 0 ? '-' : '+',
                  std::abs(minutes) / 60, std::abs(minutes) % 60);
    return text;
}

// A value of a head is one line.
std::string HeadText(std::u16string_view text) {
    std::string line = ToUtf8(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }, ' ');
    return line;
}

bool IsMessageId(std::u16string_view text) {
    constexpr std::u16string_view kMarks = u"!#$%&'*+-/=?^_`{|}~.@";
    const std::size_t at = text.find(u'@');
    return at != std::u16string_view::npos && at != 0 && at + 1 < text.size() &&
           text.find(u'@', at + 1) == std::u16string_view::npos && text.size() < 250 &&
           std::all_of(text.begin(), text.end(), [&](char16_t c) {
               return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') ||
                      kMarks.find(c) != std::u16string_view::npos;
           });
}

// How a body has to be written: as it is, with its odd characters marked, or byte for byte.
GMimeContentEncoding EncodingOf(std::u16string_view body) {
    constexpr std::size_t kLongestLine = 900;  // a message may have 998
    std::size_t line = 0;
    bool isPlain = true;
    for (std::size_t i = 0; i < body.size(); ++i) {
        const char16_t c = body[i];
        const bool isEnd = c == u'\r' && i + 1 < body.size() && body[i + 1] == u'\n';
        if (isEnd) ++i;
        line = isEnd ? 0 : line + 1;
        if (!isEnd && ((c < 0x20 && c != u'\t') || c == 0x7F)) return GMIME_CONTENT_ENCODING_BASE64;
        isPlain = isPlain && c < 0x80 && line <= kLongestLine;
    }
    return isPlain ? GMIME_CONTENT_ENCODING_7BIT : GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE;
}

// A line of our own, folded; its form has no blanks that would count.
std::string OwnLine(const char* name, std::string_view form) {
    constexpr std::size_t kRoom = 60;
    std::string line = std::string(name) + ":";
    for (std::size_t i = 0; i == 0 || i < form.size(); i += kRoom)
        line += (i == 0 ? " " : "\n ") + std::string(form.substr(i, kRoom));
    return line + "\n";
}

constexpr std::string_view kMarks = "?";  // no form may look like an encoded word

// What the head's usual lines don't give back exactly.
std::string OwnLines(const CEmailItem& email, const CEmailItem& told) {
    std::string lines;
    for (const TextRow& row : kTexts) {
        const std::string text = ToUtf8(email.*row.member);
        if (text != ToUtf8(told.*row.member)) lines += OwnLine(row.own, PercentForm(text, kMarks));
    }
    for (const NumberRow& row : kNumbers)
        if (email.*row.member != told.*row.member) lines += OwnLine(row.own, std::to_string(email.*row.member));
    for (const DateRow& row : kDates) {
        const double value = (email.*row.member).Value();
        const double toldValue = (told.*row.member).Value();
        if (std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(toldValue)) continue;
        char number[32];
        std::snprintf(number, sizeof number, "%.17g", value);
        lines += OwnLine(row.own, number);
    }
    for (const std::u16string& text : email.accessory)
        lines += OwnLine(kAttachment, PercentForm(ToUtf8(text), kMarks));
    return lines;
}

// Whether a text says something in its line. Of people, the library writes those whom it finds in a text.
bool CanStand(const TextRow& row, const std::string& text) {
    if (row.member == &CEmailItem::subject) return text.find_first_not_of(' ') != std::string::npos;
    const GMimeLibrary& mime = GMime();
    InternetAddressList* const list = mime.internet_address_list_parse(nullptr, text.c_str());
    if (list == nullptr) return false;
    const GMimeOwner<InternetAddressList> owner(list);
    const std::unique_ptr<char, GMimeDeleter> written(mime.internet_address_list_to_string(list, nullptr, 1));
    return written && *written != '\0';
}

std::size_t HalvesIn(const CEmailItem& email) {
    std::size_t halves = 0;
    ToUtf8(email.body, &halves);
    for (const TextRow& row : kTexts)
        ToUtf8(email.*row.member, &halves);
    for (const std::u16string& text : email.accessory)
        ToUtf8(text, &halves);
    return halves;
}

}  // namespace

std::string WriteMessage(const CEmailItem& email, const DateValue& received, const std::string& identifier,
                         std::size_t& replaced) {
    const GMimeLibrary& mime = GMime();
    const GMimeOwner<GMimeMessage> message(mime.g_mime_message_new(1));
    auto* const object = reinterpret_cast<GMimeObject*>(message.get());
    const auto put = [&](const char* name, const std::string& value) {
        mime.g_mime_object_set_header(object, name, value.c_str(), "utf-8");
    };
    const auto utc = UtcOf(email.sent);
    if (utc && utc->year >= 1900) put("Date", DateText(*email.sent.Fields(), *utc));
    for (const TextRow& row : kTexts) {
        const std::u16string& text = email.*row.member;
        const bool isId = row.member == &CEmailItem::entryid;
        if (isId)
            put(row.standard, "<" + (IsMessageId(text) ? ToUtf8(text) : identifier) + ">");
        else if (row.standard != nullptr && CanStand(row, HeadText(text)))
            put(row.standard, HeadText(text));
    }
    for (const NumberRow& row : kNumbers)
        for (const NumberRow::Word& word : row.words)
            if (row.standard != nullptr && word.word != nullptr && word.value == email.*row.member) {
                put(row.standard, word.word);
                break;
            }
    const GMimeOwner<GMimeTextPart> part(mime.g_mime_text_part_new());
    const GMimeContentEncoding encoding = EncodingOf(email.body);
    const bool isExact = encoding == GMIME_CONTENT_ENCODING_BASE64;
    if (isExact) put(kExactText, "exact");
    mime.g_mime_text_part_set_charset(part.get(), "utf-8");
    const std::string body = ToUtf8(isExact ? email.body : Replace(email.body, u"\r\n", u"\n") + u"\n");
    mime.g_mime_text_part_set_text(part.get(), body.c_str());
    mime.g_mime_part_set_content_encoding(reinterpret_cast<GMimePart*>(part.get()), encoding);
    mime.g_mime_message_set_mime_part(message.get(), reinterpret_cast<GMimeObject*>(part.get()));
    const std::unique_ptr<char, GMimeDeleter> written(mime.g_mime_object_to_string(object, nullptr));
    std::string text = written.get();
    if (!text.ends_with('\n')) text += '\n';

    CEmailItem told;
    NoteTally ignored;
    ReadMessage(told, text, received, 0, ignored);
    text.insert(text.find("\n\n") + 1, OwnLines(email, told));
    replaced += HalvesIn(email);
    return text;
}

}  // namespace orvale
