#include "command/exchange/VcfFormat.h"

#include <algorithm>
#include <array>

#include "command/console/CommandError.h"
#include "command/exchange/VcfReader.h"
#include "command/exchange/VcfTable.h"
#include "command/exchange/VcfWriter.h"
#include "platform/File.h"
#include "platform/Text.h"
#include "records/VCardKeys.h"

namespace orvale {
namespace {

// The ASCII of a head in UTF-16, by its mark or its zeros; any other head without the mark of UTF-8.
std::string AsciiOf(std::string_view head) {
    if (head.starts_with("\xEF\xBB\xBF")) head.remove_prefix(3);
    const bool little = head.starts_with("\xFF\xFE") || (head.size() > 1 && head[0] != 0 && head[1] == 0);
    if (!little && !head.starts_with("\xFE\xFF") && !(head.size() > 1 && head[0] == 0 && head[1] != 0))
        return std::string(head);
    std::string ascii;
    for (std::size_t i = 0; i + 1 < head.size(); i += 2) {
        const char high = head[little ? i + 1 : i];
        const char low = head[little ? i : i + 1];
        ascii.push_back(high == 0 && low > 0 ? low : '?');
    }
    return ascii;
}

// Whether the first line that begins a block begins a card, whatever the lines end in.
bool BeginsCard(std::string_view head) {
    while (!head.empty()) {
        const std::size_t end = std::min(head.find_first_of("\r\n"), head.size());
        std::string_view line = head.substr(0, end);
        while (line.starts_with(' ') || line.starts_with('\t') || line.starts_with('?'))
            line.remove_prefix(1);
        while (line.ends_with(' ') || line.ends_with('\t'))
            line.remove_suffix(1);
        if (line.starts_with('<') || line.starts_with('{')) return false;
        if (line.size() >= 6 && VcfSameName(line.substr(0, 6), "BEGIN:")) return VcfSameName(line, "BEGIN:VCARD");
        head.remove_prefix(std::min(end + 1, head.size()));
    }
    return false;
}

constexpr std::size_t kLongestLine = 2048;  // with its line end; the module's reader doesn't get past a longer one

// Goes through a vCard's lines as bytes, for this must cost little beside the reading: whether the reader takes each.
class LineJudge {
 public:
    bool Takes(std::string_view line) {
        if (!line.ends_with('\r') || line.size() >= kLongestLine) return false;
        line.remove_suffix(1);
        if (line.find('\r') != std::string_view::npos || line.find('\0') != std::string_view::npos) return false;
        line = TrimAscii(line);
        if (line.empty()) return true;
        switch (place_) {
            case Place::kOutside:
                place_ = Place::kBeforeVersion;
                return Is(line, "BEGIN:VCARD");
            case Place::kBeforeVersion:
                place_ = Place::kInCard;
                return Is(line, "VERSION:2.1");
            case Place::kInCard:
                break;
        }
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos) return false;
        if (colon == 3 && Is(line, "END:VCARD")) {
            place_ = Place::kOutside;
            return true;
        }
        const std::string_view key = TrimAscii(line.substr(0, colon));
        return IsKnown(key) && !(line.ends_with('=') && key.ends_with("ENCODING=QUOTED-PRINTABLE"));  // a soft break
    }

 private:
    enum class Place { kOutside, kBeforeVersion, kInCard };

    static std::string_view TrimAscii(std::string_view text) {
        constexpr std::string_view kSpace = " \t\v\f";
        const std::size_t first = text.find_first_not_of(kSpace);
        return first == std::string_view::npos ? std::string_view()
                                               : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
    }

    static bool Is(std::string_view line, std::string_view frame) {
        return std::equal(line.begin(), line.end(), frame.begin(), frame.end(),
                          [](char x, char y) { return (x >= 'a' && x <= 'z' ? x - 32 : x) == y; });
    }

    // The keys of a file are few: those that were looked up are kept, one for each place.
    bool IsKnown(std::string_view key) {
        if (key.empty()) return false;
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(key[i]); };
        std::string& kept =
            known_[(key.size() * 31 + byte(0) * 7 + byte(key.size() / 2) * 3 + byte(key.size() - 1)) % known_.size()];
        if (kept == key) return true;
        if (GetPropertyId(std::u16string(key.begin(), key.end())) == PROPERTY_UNKNOWN) return false;
        kept = key;
        return true;
    }

    Place place_ = Place::kOutside;
    std::array<std::string, 256> known_;
};

// A vCard is the module's where its reader takes every line, and this one's in every other case.
bool IsBeyondTheModule(const std::filesystem::path& path, std::string_view head, const FormatRow* found) {
    if (found != nullptr) return found->type == FileFormat::kVCard && !VCardReaderTakesAll(path);
    return BeginsCard(AsciiOf(head));
}

}  // namespace

bool VCardReaderTakesAll(const std::filesystem::path& path) {
    LineJudge judge;
    CFile in;
    if (in.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0)
        FailFile(path.string(), "", "can't be read");
    std::string buffer(64 * 1024, '\0');
    std::size_t kept = 0;  // bytes of a line whose end isn't there yet
    while (!in.AtEnd()) {
        const std::uint32_t got = in.Read(buffer.data() + kept, static_cast<std::uint32_t>(buffer.size() - kept));
        std::string_view text(buffer.data(), kept + got);
        for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
            if (!judge.Takes(text.substr(0, end))) return false;
            text.remove_prefix(end + 1);
        }
        if (text.size() >= kLongestLine) return false;
        kept = text.size();
        std::char_traits<char>::move(buffer.data(), text.data(), kept);  // the two may overlap
    }
    // A last line without its end, or with half of it, is of a card that lacks its own.
    return kept == 0 || std::string_view(buffer.data(), kept - 1).find('\r') == std::string_view::npos;
}

constexpr OwnFormat kVcfFormat{
    [](const std::filesystem::path& path, const std::string& shownName) -> std::unique_ptr<RecordSource> {
        return std::make_unique<VcfReader>(path, shownName);
    },
    [](std::ostream& out, Kind, const SharedProfile&, const OutputOptions& options) -> std::unique_ptr<RecordSink> {
        return std::make_unique<VcfWriter>(out, options.vcardVersion == "4.0" ? VcfVersion::k40 : VcfVersion::k30);
    },
    &IsBeyondTheModule,
};

}  // namespace orvale
