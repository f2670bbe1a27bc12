#include "host/Formats.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/File.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kHeadSize = 64 * 1024;

constexpr Likeness Sure(bool yes) {
    return yes ? Likeness::kSure : Likeness::kNone;
}

// Whether a file begins with a flag and the zero behind it.
template <const auto& kFlag>
Likeness HasFlag(std::string_view head, std::uint64_t) {
    return Sure(head.starts_with(std::string_view(kFlag, sizeof kFlag)));
}

constexpr std::string_view kSpace = " \t\r\n\v\f";

std::string_view TrimFront(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(kSpace), text.size()));
}

std::string_view TrimAscii(std::string_view text) {
    text = TrimFront(text);
    return text.substr(0, text.find_last_not_of(kSpace) + 1);
}

// Whether the first line that opens a block opens this one. Text before it is passed over, as the readers do.
bool OpensWith(std::string_view head, std::string_view block) {
    while (!head.empty()) {
        const std::size_t feed = std::min(head.find('\n'), head.size());
        std::string line(TrimAscii(head.substr(0, feed)));
        std::transform(line.begin(), line.end(), line.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
        if (line.starts_with("BEGIN:")) return line == block;
        head.remove_prefix(std::min(feed + 1, head.size()));
    }
    return false;
}

std::string_view WithoutMark(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

// Whether a head is in UTF-16, by its mark or its first "<", the low byte first or the high one.
bool IsLittleEndian(std::string_view head) {
    using namespace std::string_view_literals;
    return head.starts_with("\xFF\xFE") || head.starts_with("<\0"sv);
}
bool IsBigEndian(std::string_view head) {
    using namespace std::string_view_literals;
    return head.starts_with("\xFE\xFF") || head.starts_with("\0<"sv);
}

// A line of a suite or of a JSON document may well be one that opens a block; blocks are 8-bit text.
template <const char* kBlock>
Likeness HasBlock(std::string_view head, std::uint64_t) {
    const std::string_view text = TrimFront(WithoutMark(head));
    const bool is8Bit = !IsLittleEndian(head) && !IsBigEndian(head);
    return Sure(is8Bit && !text.starts_with('<') && !text.starts_with('{') && OpensWith(head, kBlock));
}

// The ASCII of a head in UTF-16; any other head as it is. A blank stands for what isn't ASCII.
std::string NarrowHead(std::string_view head) {
    const bool little = IsLittleEndian(head);
    if (!little && !IsBigEndian(head)) return std::string(head);
    std::string narrow;
    for (std::size_t i = 0; i + 1 < head.size(); i += 2) {
        const char high = head[little ? i + 1 : i];
        const char low = head[little ? i : i + 1];
        narrow.push_back(high == 0 && low >= 0 ? low : ' ');
    }
    return narrow;
}

// The first start tag, behind declaration, comments and document type; empty if there is none.
std::string_view FirstStartTag(std::string_view text) {
    text = TrimAscii(WithoutMark(text));
    while (text.starts_with("<?") || text.starts_with("<!")) {
        std::string_view end = text.starts_with("<?") ? "?>" : text.starts_with("<!--") ? "-->" : ">";
        // A document type with declarations of its own. No further than to the first ">" is looked each time.
        if (end == ">" && text.substr(0, text.find('>')).find('[') != std::string_view::npos) end = "]>";
        const std::size_t found = text.find(end);
        if (found == std::string_view::npos) return {};
        text = TrimAscii(text.substr(found + end.size()));
    }
    return text.starts_with('<') ? text.substr(0, text.find('>')) : std::string_view();
}

// Whether the first start tag has an attribute id of this value.
template <const char* kId>
Likeness HasSuiteId(std::string_view head, std::uint64_t) {
    const std::string text = NarrowHead(head);
    const std::string_view tag = FirstStartTag(text);
    for (std::size_t at = tag.find("id"); at != std::string_view::npos; at = tag.find("id", at + 1)) {
        if (at == 0 || std::string_view(" \t\r\n").find(tag[at - 1]) == std::string_view::npos) continue;
        const std::string_view rest = TrimFront(tag.substr(at + 2));
        if (!rest.starts_with('=')) continue;
        const std::string_view value = TrimFront(rest.substr(1));
        if (value.size() < 2 || (value[0] != '"' && value[0] != '\'')) continue;
        return Sure(value.substr(1, value.find(value[0], 1) - 1) == kId);
    }
    return Likeness::kNone;
}

// The header ends in the number of bytes behind it; there is no flag.
Likeness HasSsySize(std::string_view head, std::uint64_t size) {
    constexpr std::size_t kHeaderSize = 54;
    if (head.size() < kHeaderSize) return Likeness::kNone;
    std::uint32_t told = 0;
    for (std::size_t i = 4; i-- > 0;)
        told = told << 8 | static_cast<unsigned char>(head[kHeaderSize - 4 + i]);
    return told == size - kHeaderSize ? Likeness::kWeak : Likeness::kNone;
}

Likeness TellsNothing(std::string_view, std::uint64_t) {
    return Likeness::kNone;
}

constexpr char kQzsFlag[] = "<QZ-QZS>";
constexpr char kSmsFlag[] = "<QZ-SMS>";
constexpr char kCalFlag[] = "<QZ-CAL>";
constexpr char kEmlFlag[] = "<QZ-EML>";
constexpr char kVCardBlock[] = "BEGIN:VCARD";
constexpr char kVCalendarBlock[] = "BEGIN:VCALENDAR";
constexpr char kPhonebookId[] = "suite-phonebook";
constexpr char kCalendarId[] = "suite-calendar";
constexpr char kSmsId[] = "suite-SMS";
constexpr char kEmailId[] = "suite-email";

using End = EndRule;
using Shape = ProfileShape;

constexpr std::string_view kTexts = "texts of at most 1023 units without a zero among them";
constexpr std::string_view kMessageTexts = "texts of at most 2047 units without a zero among them";
constexpr std::string_view kLines = "lines of at most 2047 bytes";
constexpr std::string_view kCardLines = "lines of at most 2048 bytes";

// All that hosts and the command know of the formats: a new one is a row here.
constexpr FormatInfo kFormats[] = {
    {FileFormat::kQzs, "qzs", Kind::kContacts, ".qzs", true, End::kBytesLeft, Shape::kNone, &HasFlag<kQzsFlag>, kTexts},
    {FileFormat::kSsy, "ssy", Kind::kContacts, ".ssy", false, End::kBytesLeft, Shape::kNone, &HasSsySize},
    {FileFormat::kCsv, "csv", Kind::kContacts, ".csv", true, End::kBytesLeft, Shape::kColumns, &TellsNothing, kLines},
    {FileFormat::kVCard, "vcard", Kind::kContacts, ".vcf", true, End::kWhiteSpaceLeft, Shape::kNone,
     &HasBlock<kVCardBlock>, kCardLines},
    {FileFormat::kSms, "sms", Kind::kSms, ".sms", true, End::kLastRecordSize, Shape::kNone, &HasFlag<kSmsFlag>,
     kMessageTexts},
    {FileFormat::kCal, "cal", Kind::kCalendar, ".cal", true, End::kBytesLeft, Shape::kNone, &HasFlag<kCalFlag>, kTexts},
    {FileFormat::kVCalendar, "vcalendar", Kind::kCalendar, ".vcs", true, End::kOneRecord, Shape::kNone,
     &HasBlock<kVCalendarBlock>},
    {FileFormat::kPhonebookXml, "phonebook-xml", Kind::kContacts, ".xml", true, End::kAskAgain, Shape::kPhonebook,
     &HasSuiteId<kPhonebookId>},
    {FileFormat::kCalendarXml, "calendar-xml", Kind::kCalendar, ".xml", true, End::kNone, Shape::kCalendar,
     &HasSuiteId<kCalendarId>},
    {FileFormat::kSmsXml, "sms-xml", Kind::kSms, ".xml", true, End::kNone, Shape::kSms, &HasSuiteId<kSmsId>},
    {FileFormat::kEmailXml, "email-xml", Kind::kEmail, ".xml", true, End::kNone, Shape::kEmail, &HasSuiteId<kEmailId>},
    {FileFormat::kEml, "eml", Kind::kEmail, ".eml", true, End::kBytesLeft, Shape::kNone, &HasFlag<kEmlFlag>, kTexts},
};

}  // namespace

std::span<const FormatInfo> AllFormats() {
    return kFormats;
}

const FormatInfo& Info(FileFormat format) {
    for (const FormatInfo& row : kFormats)
        if (row.format == format) return row;
    throw std::invalid_argument("no such format");
}

const FormatInfo* FindFormat(std::string_view name) {
    for (const FormatInfo& row : kFormats)
        if (row.name == name) return &row;
    return nullptr;
}

std::optional<std::string> ReadHead(const std::filesystem::path& path) {
    try {
        CFile file;
        if (file.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0) return std::nullopt;
        std::string head(kHeadSize, '\0');
        head.resize(file.Read(head.data(), static_cast<std::uint32_t>(head.size())));
        return head;
    } catch (const std::system_error&) {
        return std::nullopt;
    }
}

const FormatInfo* DetectByContent(const std::filesystem::path& path) {
    const std::optional<std::string> head = ReadHead(path);
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(path, error);
    return head && !error ? DetectByContent(*head, size) : nullptr;
}

const FormatInfo* DetectByContent(std::string_view head, std::uint64_t size) {
    const FormatInfo* best = nullptr;
    Likeness most = Likeness::kNone;
    for (const FormatInfo& row : kFormats) {
        const Likeness likeness = row.looksLike(head, size);
        if (likeness <= most) continue;
        best = &row;
        most = likeness;
    }
    return best;
}

}  // namespace orvale
