// The way in of MboxMessage.h: an email out of a message.
#include <ctime>

#include <algorithm>
#include <charconv>
#include <optional>

#include "command/exchange/GMimeLibrary.h"
#include "command/exchange/MailNames.h"
#include "command/exchange/MboxMessage.h"
#include "command/exchange/PercentText.h"
#include "command/exchange/PlainWords.h"
#include "platform/CodePage.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using namespace mail;

constexpr std::size_t kMostParts = 10000;  // of a message

// What says nothing of the message to a person, or is said by the parts.
constexpr std::string_view kQuiet[] = {
    "date",  "mime-version", "content-type", "content-transfer-encoding", "content-disposition", "content-length",
    "lines", "x-status",     "x-uid"};

std::string InSmall(std::string_view text) {
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return small;
}

bool IsA(void* object, GType type) {
    return object != nullptr && GMime().g_type_check_instance_is_a(static_cast<GTypeInstance*>(object), type) != 0;
}

// Lines that end in CR LF, as the records have them.
std::u16string WithLineEnds(std::u16string_view text) {
    std::u16string lines;
    lines.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t feed = text.find(u'\n'); feed != std::u16string_view::npos; feed = text.find(u'\n', from)) {
        const bool isWhole = feed != 0 && text[feed - 1] == u'\r';
        lines.append(text.substr(from, feed - from)).append(isWhole ? u"\n" : u"\r\n");
        from = feed + 1;
    }
    return lines.append(text.substr(from));
}

template <class Number>
bool TakeWhole(std::string_view text, Number& number) {
    const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && behind == text.data() + text.size();
}

class MessageReader {
 public:
    MessageReader(CEmailItem& email, GMimeMessage* message, std::size_t line, NoteTally& notes)
        : mime_(GMime()), email_(email), message_(message), line_(line), notes_(notes) {}

    void Read() {
        for (const TextRow& row : kTexts)
            if (const auto value = row.standard != nullptr ? Head(row.standard) : std::nullopt)
                email_.*row.member = Text(*value);
        if (std::u16string& id = email_.entryid; id.size() > 1 && id.front() == u'<' && id.back() == u'>')
            id = id.substr(1, id.size() - 2);
        for (const NumberRow& row : kNumbers)
            TakeWord(row);
        if (GDateTime* const date = mime_.g_mime_message_get_date(message_))
            email_.sent = DateOfSeconds(mime_.g_date_time_to_unix(date));
        ReadParts();
        ReadOwn();
    }

 private:
    void Note(const std::string& what, std::size_t count = 1) { notes_.Add(what, line_, count); }

    GMimeObject* Object() { return reinterpret_cast<GMimeObject*>(message_); }

    std::optional<std::string> Head(const char* name) {
        const char* const value = mime_.g_mime_object_get_header(Object(), name);
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    }

    std::u16string Text(std::string_view bytes) {
        std::size_t replaced = 0;
        std::u16string text = FromUtf8(bytes, &replaced);
        Note("bytes that are no UTF-8", replaced);
        return text;
    }

    void TakeWord(const NumberRow& row) {
        const auto value = row.standard != nullptr ? Head(row.standard) : std::nullopt;
        if (!value) return;
        for (const NumberRow::Word& word : row.words) {
            if (word.word == nullptr || InSmall(*value) != InSmall(word.word)) continue;
            email_.*row.member = word.value;
            return;
        }
        Note(std::string("values of a kind that no phone knows: ") + row.standard);
    }

    // What the lines of our own say, and how many lines say something that has no place.
    void ReadOwn() {
        GMimeHeaderList* const list = mime_.g_mime_object_get_header_list(Object());
        const int count = mime_.g_mime_header_list_get_count(list);
        for (int i = 0; i < count; ++i) {
            GMimeHeader* const header = mime_.g_mime_header_list_get_header_at(list, i);
            const char* const name = mime_.g_mime_header_get_name(header);
            const char* const value = mime_.g_mime_header_get_value(header);
            if (name == nullptr || value == nullptr) continue;
            const std::string small = InSmall(name);
            if (!TakeOwn(small, value) && !IsKnown(small)) Note("lines of a head that a phone has no place for");
        }
    }

    bool TakeOwn(const std::string& small, const char* value) {
        if (!small.starts_with("x-orvale-")) return false;
        std::string form = value;
        std::erase_if(form, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
        for (const TextRow& row : kTexts)
            if (small == InSmall(row.own)) email_.*row.member = Text(PercentBytes(form));
        for (const NumberRow& row : kNumbers)
            if (small == InSmall(row.own)) TakeWhole(form, email_.*row.member);
        double number = 0;
        for (const DateRow& row : kDates)
            if (small == InSmall(row.own) && TakeWhole(form, number)) email_.*row.member = DateValue(number);
        if (small == InSmall(kAttachment)) email_.accessory.push_back(Text(PercentBytes(form)));
        return true;
    }

    static bool IsKnown(const std::string& small) {
        if (std::find(std::begin(kQuiet), std::end(kQuiet), small) != std::end(kQuiet)) return true;
        const auto isOf = [&](const auto& row) { return row.standard != nullptr && small == InSmall(row.standard); };
        return std::any_of(std::begin(kTexts), std::end(kTexts), isOf) ||
               std::any_of(std::begin(kNumbers), std::end(kNumbers), isOf);
    }

    // Goes through the parts without recursion: how deep they lie is the sender's choice.
    void ReadParts() {
        GMimeObject* const top = mime_.g_mime_message_get_mime_part(message_);
        std::vector<GMimeObject*> open{top};
        std::size_t parts = 0;
        while (!open.empty()) {
            GMimeObject* const part = open.back();
            open.pop_back();
            if (part == nullptr) continue;
            if (++parts > kMostParts) {
                Note("parts of messages beyond 10000");
                break;
            }
            if (IsA(part, mime_.g_mime_multipart_get_type())) {
                auto* const multipart = reinterpret_cast<GMimeMultipart*>(part);
                const int count = mime_.g_mime_multipart_get_count(multipart);
                for (int i = std::min(count, static_cast<int>(kMostParts)); i-- > 0;)
                    open.push_back(mime_.g_mime_multipart_get_part(multipart, i));
            } else {
                ReadPart(part, part == top);
            }
        }
        if (!hasPlain_ && hasHtml_) {
            email_.body = html_;
            Note("the looks of HTML texts");
        } else if (hasHtml_) {
            Note("HTML texts beside the plain ones");
        }
    }

    void ReadPart(GMimeObject* part, bool isWhole) {
        GMimeContentDisposition* const disposition = mime_.g_mime_object_get_content_disposition(part);
        const char* const word =
            disposition != nullptr ? mime_.g_mime_content_disposition_get_disposition(disposition) : nullptr;
        const bool isAttached = word != nullptr && InSmall(word) == "attachment";
        GMimeContentType* const type = mime_.g_mime_object_get_content_type(part);
        const bool isText = IsA(part, mime_.g_mime_text_part_get_type()) && type != nullptr;
        if (isText && !isAttached && mime_.g_mime_content_type_is_type(type, "text", "plain"))
            return AddText(part, isWhole);
        if (isText && !isAttached && mime_.g_mime_content_type_is_type(type, "text", "html")) {
            if (!std::exchange(hasHtml_, true)) html_ = WithLineEnds(Text(PlainWords(Decoded(part))));
            return;
        }
        const bool isPart = IsA(part, mime_.g_mime_part_get_type());
        const char* const name = isPart ? mime_.g_mime_part_get_filename(reinterpret_cast<GMimePart*>(part)) : nullptr;
        const std::unique_ptr<char, GMimeDeleter> kind(type != nullptr ? mime_.g_mime_content_type_get_mime_type(type)
                                                                       : nullptr);
        email_.accessory.push_back(Text(name != nullptr && *name != '\0' ? name : kind ? kind.get() : "attachment"));
        Note("data of attachments");
    }

    // The text in UTF-8. The library leaves out what isn't in the charset that the part names, without a word: where it
    // could, the bytes are taken as UTF-8, else as those of the code page that most such texts are in.
    std::string Decoded(GMimeObject* part) {
        auto* const textPart = reinterpret_cast<GMimeTextPart*>(part);
        const std::unique_ptr<char, GMimeDeleter> text(mime_.g_mime_text_part_get_text(textPart));
        std::string decoded = text ? text.get() : "";
        const char* const charset = mime_.g_mime_text_part_get_charset(textPart);
        const std::string named = charset != nullptr ? InSmall(charset) : "us-ascii";
        const bool isLeft = named == "us-ascii" || named == "utf-8" || IsAscii(decoded);
        const std::string bytes = isLeft ? ContentOf(part) : "";
        if (IsAscii(bytes)) return decoded;
        std::size_t replaced = 0;
        std::u16string wide = FromUtf8(bytes, &replaced);
        if (replaced == 0 && named == "utf-8") return decoded;
        if (replaced != 0) {
            constexpr std::int32_t kWesternEuropean = 1252;
            Note("texts that aren't in the charset that they name");
            wide = TextConverter(*FindCodePage(kWesternEuropean)).ToWide(bytes);
        }
        return ToUtf8(Replace(wide, u"\r\n", u"\n"));
    }

    static bool IsAscii(const std::string& text) { return AsciiPrefix(std::string_view(text)) == text.size(); }

    // The bytes of a part, without their transfer encoding.
    std::string ContentOf(GMimeObject* part) {
        GMimeDataWrapper* const content = mime_.g_mime_part_get_content(reinterpret_cast<GMimePart*>(part));
        if (content == nullptr) return "";
        const std::unique_ptr<GMimeStream, GMimeDeleter> stream(mime_.g_mime_stream_mem_new());
        if (mime_.g_mime_data_wrapper_write_to_stream(content, stream.get()) < 0) return "";
        const GByteArray* const array =
            mime_.g_mime_stream_mem_get_byte_array(reinterpret_cast<GMimeStreamMem*>(stream.get()));
        const std::string_view all(reinterpret_cast<const char*>(array->data), array->len);
        return std::string(all.substr(0, all.find('\0')));  // a zero ends a text
    }

    // A text of several parts is one, with an empty line between.
    void AddText(GMimeObject* part, bool isWhole) {
        std::string bytes = Decoded(part);
        const bool isExact = isWhole && Head(kExactText).has_value();
        // The last line end of a message belongs to the mailbox.
        if (isWhole && !isExact && bytes.ends_with('\n')) {
            bytes.pop_back();
            if (bytes.ends_with('\r')) bytes.pop_back();
        }
        std::u16string text = Text(bytes);
        if (!isExact) text = WithLineEnds(text);
        if (std::exchange(hasPlain_, true)) email_.body += u"\r\n\r\n";
        email_.body += text;
    }

    const GMimeLibrary& mime_;
    CEmailItem& email_;
    GMimeMessage* message_;
    std::size_t line_;
    NoteTally& notes_;
    bool hasPlain_ = false;
    bool hasHtml_ = false;
    std::u16string html_;
};

// What the library doesn't take for a message, such as text that begins like one, is text.
void TakeAsText(CEmailItem& email, std::string_view message, std::size_t line, NoteTally& notes) {
    if (message.ends_with('\n')) message.remove_suffix(1);  // the mailbox's
    std::size_t replaced = 0;
    std::u16string text = FromUtf8(message, &replaced);
    std::erase(text, u'\0');  // no text of a record goes on behind one
    email.body = WithLineEnds(text);
    notes.Add("bytes that are no UTF-8", line, replaced);
    notes.Add("messages without a head, which became texts", line, message.empty() ? 0 : 1);
}

}  // namespace

DateValue DateOfSeconds(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    if (gmtime_r(&time, &parts) == nullptr) return {};
    const CalendarFields utc{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                             parts.tm_hour,        parts.tm_min,     parts.tm_sec};
    const auto local = IsValid(utc) ? UtcToLocal(utc) : std::nullopt;
    return local && local->year >= 100 ? DateValue::FromFields(*local) : DateValue();
}

std::optional<CalendarFields> UtcOf(const DateValue& date) {
    const auto fields = date.IsNone() ? std::nullopt : date.Fields();
    return fields ? LocalToUtc(*fields) : std::nullopt;
}

void ReadMessage(CEmailItem& email, const std::string& message, const DateValue& received, std::size_t line,
                 NoteTally& notes) {
    const GMimeLibrary& mime = GMime();
    const GMimeOwner<GMimeStream> stream(mime.g_mime_stream_mem_new_with_buffer(message.data(), message.size()));
    const GMimeOwner<GMimeParser> parser(mime.g_mime_parser_new_with_stream(stream.get()));
    const GMimeOwner<GMimeMessage> parsed(mime.g_mime_parser_construct_message(parser.get(), nullptr));
    email.received = received;
    if (parsed)
        MessageReader(email, parsed.get(), line, notes).Read();
    else
        TakeAsText(email, message, line, notes);
}

}  // namespace orvale
