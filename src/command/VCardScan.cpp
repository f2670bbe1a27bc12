#include "command/VCardScan.h"

#include <fstream>
#include <string>

#include "platform/CodePage.h"
#include "platform/Text.h"
#include "records/VCardKeys.h"

namespace orvale {
namespace {

constexpr std::size_t kLongestLine = 2048;  // the reader doesn't get past a longer one

// A line up to CR LF or the end of the file. False at the end, and for a line over the limit.
bool TakeRawLine(std::streambuf& in, std::string& line) {
    line.clear();
    for (int c = in.sbumpc(); c != std::char_traits<char>::eof(); c = in.sbumpc()) {
        line.push_back(static_cast<char>(c));
        if (line.ends_with("\r\n")) return true;
        if (line.size() == kLongestLine) return in.sgetc() == std::char_traits<char>::eof();
    }
    return !line.empty();
}

}  // namespace

VCardScan ScanVCard(const std::filesystem::path& path, std::uint64_t end) {
    VCardScan scan;
    std::ifstream in(path, std::ios::binary);
    TextConverter converter;
    enum class Place { kOutside, kBeforeVersion, kInCard } place = Place::kOutside;
    std::string raw;
    bool hasValue = false;
    std::uint64_t offset = 0;
    for (std::size_t number = 1; in && offset < end && TakeRawLine(*in.rdbuf(), raw); ++number) {
        offset += raw.size();
        const std::size_t replaced = converter.Replaced();
        const std::u16string wide = converter.ToWide(raw);
        for (std::size_t i = replaced; i < converter.Replaced(); ++i)
            scan.badBytes.Add(number);
        const std::u16string_view line = Trim(wide);
        if (place == Place::kOutside) {
            if (EqualsNoCase(line, u"BEGIN:VCARD"))
                place = Place::kBeforeVersion;
            else if (!line.empty())
                scan.skippedLines.Add(number);
        } else if (place == Place::kBeforeVersion) {
            if (EqualsNoCase(line, u"VERSION:2.1")) {
                place = Place::kInCard;
                hasValue = false;
            } else if (!line.empty()) {
                scan.skippedLines.Add(number);
            }
        } else if (EqualsNoCase(line, u"END:VCARD")) {
            place = Place::kOutside;
        } else if (const std::size_t colon = line.find(u':'); colon != std::u16string_view::npos) {
            const bool known = GetPropertyId(Trim(line.substr(0, colon))) != PROPERTY_UNKNOWN;
            if (!known) scan.unknownLines.Add(number);
            hasValue = hasValue || known;
        } else if (!hasValue && !line.empty()) {
            scan.unknownLines.Add(number);  // a line that continues nothing
        }
    }
    return scan;
}

}  // namespace orvale
