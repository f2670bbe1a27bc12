#include "command/TextScan.h"

#include <algorithm>
#include <fstream>
#include <string>

#include "platform/CodePage.h"
#include "platform/File.h"
#include "platform/Text.h"
#include "records/QuotedPrintable.h"
#include "records/VCalendarKeys.h"
#include "records/VCardKeys.h"

namespace orvale {
namespace {

constexpr std::size_t kLongestLine = 2048;  // the reader doesn't get past a longer one

// A line up to CR LF or the end of the file. False at the end, and for a line over the limit.
bool TakeRawLine(CFile& in, std::string& line) {
    line.clear();
    while (!in.AtEnd()) {
        const std::string_view ahead = in.Ahead();
        const std::size_t size = std::min(ahead.find('\n'), ahead.size() - 1) + 1;
        const std::size_t taken = std::min(size, kLongestLine - line.size());
        line.append(ahead.substr(0, taken));
        in.Skip(taken);
        if (line.ends_with("\r\n")) return true;
        if (line.size() == kLongestLine) return in.AtEnd();
    }
    return !line.empty();
}

class Scanner {
 public:
    TextScan scan;

    void Line(const std::string& raw, std::size_t number) {
        const std::size_t zero = raw.find('\0');
        const std::size_t replaced = converter_.Replaced();
        converter_.AssignWide(raw, wide_);
        const std::size_t bad = converter_.Replaced() - replaced;
        const std::u16string_view line = Trim(wide_);
        switch (place_) {
            case Place::kOutside:
                if (EqualsNoCase(line, u"BEGIN:VCARD"))
                    place_ = Place::kBeforeVersion;
                else if (!line.empty())
                    scan.skippedLines.Add(number);
                return;
            case Place::kBeforeVersion:
                if (EqualsNoCase(line, u"VERSION:2.1"))
                    place_ = Place::kInCard;
                else if (!line.empty())
                    scan.skippedLines.Add(number);
                hasValue_ = false;
                return;
            case Place::kInCard:
                break;
        }
        scan.badBytes.Add(number, bad);
        scan.cutValues.Add(number, zero != std::string::npos && zero + 2 < raw.size() ? 1 : 0);
        if (EqualsNoCase(line, u"END:VCARD")) {
            EndLogicalLine();
            place_ = Place::kOutside;
        } else if (FindUnit(line, u':') == std::u16string_view::npos && parts_ != 0) {
            logical_ += line;  // it continues the line before it
            parts_ += !line.empty();
        } else {
            EndLogicalLine();
            logical_ = line;
            parts_ = 1;
            firstPart_ = number;
        }
    }

 private:
    enum class Place { kOutside, kBeforeVersion, kInCard };

    void EndLogicalLine() {
        const std::u16string_view line = logical_;
        const std::size_t colon = FindUnit(line, u':');
        const std::u16string_view key = Trim(line.substr(0, colon));
        const std::int32_t id = key.empty() ? PROPERTY_UNKNOWN : GetPropertyId(key);
        if (id == PROPERTY_UNKNOWN) {
            (hasValue_ ? scan.joinedLines : scan.droppedLines).Add(firstPart_, line.empty() ? 0 : parts_);
        } else if (id == PROPERTY_IGNORED) {
            scan.droppedLines.Add(firstPart_ + 1, parts_ - 1);
        } else {
            hasValue_ = hasValue_ || colon + 1 < line.size();
        }
        // The reader decodes every value, and of a line that joined one all of it.
        if (id != PROPERTY_UNKNOWN && id != PROPERTY_IGNORED)
            Decode(line.substr(colon + 1));
        else if (id == PROPERTY_UNKNOWN && hasValue_)
            Decode(line);
        logical_.clear();
        parts_ = 0;
    }

    void Decode(std::u16string_view value) {
        if (FindUnit(value, u'=') == std::u16string_view::npos) return;
        const std::string bytes = QuotedPrintableBytes(value, converter_);
        const std::size_t replaced = converter_.Replaced();
        converter_.ToWide(bytes);
        // What the raw bytes lacked was counted with their line, and stands as U+FFFD here.
        scan.badBytes.Add(firstPart_, converter_.Replaced() - replaced);
        scan.cutValues.Add(firstPart_, bytes.find('\0') != std::string::npos ? 1 : 0);
    }

    TextConverter converter_;
    std::u16string wide_;
    Place place_ = Place::kOutside;
    bool hasValue_ = false;
    std::u16string logical_;
    std::size_t parts_ = 0;  // how many lines of the file it is of
    std::size_t firstPart_ = 0;
};

TextScan ScanVCard(const std::filesystem::path& path, std::uint64_t end) {
    Scanner scanner;
    CFile in;
    if (in.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0) return scanner.scan;
    std::string raw;
    std::uint64_t offset = 0;
    for (std::size_t number = 1; offset < end && TakeRawLine(in, raw); ++number) {
        offset += raw.size();
        scanner.Line(raw, number);
    }
    return scanner.scan;
}

// The reader takes the whole file.
TextScan ScanVCalendar(const std::filesystem::path& path, std::uint64_t) {
    TextScan scan;
    std::ifstream in(path, std::ios::binary);
    TextConverter converter;
    std::string raw;
    std::size_t entries = 0;
    bool hasValue = false;
    bool continues = false;  // the line before ended in a soft line break
    for (std::size_t number = 1; std::getline(in, raw); ++number) {
        const std::size_t replaced = converter.Replaced();
        const std::u16string wide = converter.ToWide(raw);
        scan.badBytes.Add(number, converter.Replaced() - replaced);
        if (raw.find('\0') != std::string::npos) {  // a zero ends the text of the file
            scan.cutValues.Add(number);
            return scan;
        }
        const std::u16string_view line = Trim(wide);
        const std::size_t colon = line.find(u':');
        const std::int32_t id =
            colon != std::u16string_view::npos ? GetVCalendarPropertyId(Trim(line.substr(0, colon))) : PROPERTY_UNKNOWN;
        const bool isHead = number <= 3 && (line.starts_with(u"PRODID:") || EqualsNoCase(line, u"VERSION:1.0"));
        const bool opens = id == kVCalendarBegin && !EqualsNoCase(line, u"BEGIN:VCALENDAR");
        scan.furtherEntries.Add(number, opens && ++entries > 1 ? 1 : 0);
        if (id != PROPERTY_UNKNOWN)
            hasValue = hasValue || number > 1;
        else if (!line.empty() && !isHead && !continues)
            (hasValue ? scan.joinedLines : scan.droppedLines).Add(number);
        continues = line.ends_with(u'=');
    }
    return scan;
}

// Bytes outside of the code page, up to the zero that ends a text.
void AddBytes(TextScan& scan, TextConverter& converter, std::string_view text, std::size_t number) {
    const std::size_t replaced = converter.Replaced();
    converter.ToWide(text);
    scan.badBytes.Add(number, converter.Replaced() - replaced);
}

TextScan ScanCsv(const std::filesystem::path& path, std::uint64_t end) {
    TextScan scan;
    CFile in;
    if (in.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0) return scan;
    TextConverter converter;
    std::string raw;
    std::uint64_t offset = 0;
    for (std::size_t number = 1; offset < end && TakeRawLine(in, raw); ++number) {
        offset += raw.size();
        AddBytes(scan, converter, raw, number);
        const std::size_t zero = raw.find('\0');
        scan.cutValues.Add(number, zero != std::string::npos && zero + 2 < raw.size() ? 1 : 0);
    }
    return scan;
}

TextScan ScanSsy(const std::filesystem::path& path, std::uint64_t end) {
    constexpr std::size_t kHeaderSize = 54;
    TextScan scan;
    scan.unit = "record";
    std::ifstream in(path, std::ios::binary);
    in.seekg(kHeaderSize);
    TextConverter converter;
    std::string raw;
    std::uint64_t offset = kHeaderSize;
    for (std::size_t number = 1; offset < end && std::getline(in, raw, '\0'); ++number) {
        offset += raw.size() + 1;
        AddBytes(scan, converter, raw, number);
    }
    return scan;
}

// A format whose reader leaves something out, or puts something else in its place, has its row.
constexpr struct {
    FileFormat format;
    TextScan (*scan)(const std::filesystem::path& path, std::uint64_t end);
} kScans[] = {
    {FileFormat::kSsy, &ScanSsy},
    {FileFormat::kCsv, &ScanCsv},
    {FileFormat::kVCard, &ScanVCard},
    {FileFormat::kVCalendar, &ScanVCalendar},
};

}  // namespace

TextScan ScanText(FileFormat format, const std::filesystem::path& path, std::uint64_t end) {
    for (const auto& row : kScans)
        if (row.format == format) return row.scan(path, end);
    return {};
}

}  // namespace orvale
