#include "host/Formats.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/File.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kHeadSize = 16 * 1024;

template <const char* kFlag>
bool HasFlag(std::string_view head, std::uint64_t) {
    return head.starts_with(std::string_view(kFlag, 9));  // with its zero
}

std::string_view TrimAscii(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
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

template <const char* kBlock>
bool HasBlock(std::string_view head, std::uint64_t) {
    const std::string_view text = TrimAscii(head);
    return !text.starts_with('<') && !text.starts_with('{') && OpensWith(head, kBlock);
}

constexpr char kQzsFlag[] = "<QZ-QZS>";
constexpr char kSmsFlag[] = "<QZ-SMS>";
constexpr char kCalFlag[] = "<QZ-CAL>";
constexpr char kEmlFlag[] = "<QZ-EML>";
constexpr char kVCardBlock[] = "BEGIN:VCARD";
constexpr char kVCalendarBlock[] = "BEGIN:VCALENDAR";

// The table of formats as hosts see them: a new one is a row here.
constexpr FormatInfo kFormats[] = {
    {FileFormat::kQzs, "qzs", Kind::kContacts, ".qzs", true, &HasFlag<kQzsFlag>},
    {FileFormat::kVCard, "vcard", Kind::kContacts, ".vcf", true, &HasBlock<kVCardBlock>},
    {FileFormat::kSms, "sms", Kind::kSms, ".sms", true, &HasFlag<kSmsFlag>},
    {FileFormat::kCal, "cal", Kind::kCalendar, ".cal", true, &HasFlag<kCalFlag>},
    {FileFormat::kVCalendar, "vcalendar", Kind::kCalendar, ".vcs", true, &HasBlock<kVCalendarBlock>},
    {FileFormat::kEml, "eml", Kind::kEmail, ".eml", true, &HasFlag<kEmlFlag>},
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
    if (!head) return nullptr;
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(path, error);
    for (const FormatInfo& row : kFormats)
        if (row.looksLike(*head, error ? 0 : size)) return &row;
    return nullptr;
}

}  // namespace orvale
