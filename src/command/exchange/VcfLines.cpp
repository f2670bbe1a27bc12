#include "command/exchange/VcfLines.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "command/console/CommandError.h"
#include "command/exchange/VcfProperty.h"
#include "command/exchange/VcfTable.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The place of the first CR or LF, eight bytes at a time: lines of one sort alone must not cost a look for the other up
// to the buffer's end.
std::size_t FindLineEnd(std::string_view text) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighs = 0x8080808080808080;
    const auto zeros = [](std::uint64_t bytes) { return (bytes - kOnes) & ~bytes & kHighs; };
    std::size_t i = 0;
    for (std::uint64_t bytes = 0; i + sizeof bytes <= text.size(); i += sizeof bytes) {
        std::memcpy(&bytes, text.data() + i, sizeof bytes);
        const std::uint64_t found = zeros(bytes ^ kOnes * '\r') | zeros(bytes ^ kOnes * '\n');
        if (found == 0) continue;
        if constexpr (std::endian::native == std::endian::little)
            return i + static_cast<std::size_t>(std::countr_zero(found)) / 8;
        break;
    }
    while (i < text.size() && text[i] != '\r' && text[i] != '\n')
        ++i;
    return i;
}

bool IsBase64(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/' ||
               c == '=';
    });
}

bool IsFrame(std::string_view text) {
    return (text.size() >= 6 && VcfSameName(text.substr(0, 6), "BEGIN:")) ||
           (text.size() >= 4 && VcfSameName(text.substr(0, 4), "END:"));
}

// Whether a line without a colon is the front of a property, whose parameters go on in the next one.
bool IsFrontOfProperty(std::string_view text) {
    const std::size_t end = std::min(text.find(';'), text.size());
    return end != 0 && end != text.size() &&
           std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
                      c == '.';
           });
}

// Whether a line is plainly a property: a name that cards have, in capitals, and what follows one. Text that goes on
// here looks so by chance alone.
bool IsPlainlyProperty(std::string_view text) {
    constexpr std::string_view kOthers[] = {"PHOTO", "LOGO",   "SOUND", "KEY",  "UID",   "TZ",
                                            "GEO",   "MAILER", "CLASS", "IMPP", "AGENT", "SORT-STRING"};
    const std::size_t end = text.find_first_of(":;");
    if (end == std::string_view::npos || text.find(':', end) == std::string_view::npos) return false;
    std::string_view name = text.substr(0, end);
    if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos) name.remove_prefix(dot + 1);
    if (std::any_of(name.begin(), name.end(), [](char c) { return c >= 'a' && c <= 'z'; })) return false;
    return name.starts_with("X-") || !VcfRowsOf(name).empty() ||
           std::find(std::begin(kOthers), std::end(kOthers), name) != std::end(kOthers);
}

// Whether the soft break at a text's end stands behind a line end of the value: there it is meant.
bool BreaksBehindLineEnd(std::string_view text) {
    text = text.substr(0, text.find_last_of('='));
    return text.ends_with("=0A") || text.ends_with("=0a") || text.ends_with("=0D") || text.ends_with("=0d");
}

// Whether a line of quoted-printable ends here, although a "=" at its end says that it goes on: some programs leave one
// behind a value's last line.
bool IsStraySoftBreak(std::string_view text, std::string_view next) {
    return VcfSameName(next, "END:VCARD") || VcfSameName(next, "BEGIN:VCARD") ||
           (IsPlainlyProperty(next) && !BreaksBehindLineEnd(text));
}

VcfEncoding EncodingOf(std::string_view text) {
    VcfProperty property;
    return ParseVcfProperty(text, property) ? property.encoding : VcfEncoding::kPlain;
}

}  // namespace

VcfBytes::VcfBytes(const std::filesystem::path& path, const std::string& shownName) {
    const std::u16string name = FromUtf8(path.native());
    std::error_code error = std::make_error_code(std::errc::illegal_byte_sequence);
    if (ToUtf8(name) != path.native() ||
        file_.Open(name.c_str(), CFile::kModeRead | CFile::kShareExclusive, &error) == 0)
        FailFile(shownName, "", SystemReason(error));
    LookAtMark();
}

void VcfBytes::LookAtMark() {
    const std::string_view head = file_.Ahead();
    const auto starts = [&](std::string_view bytes) { return head.starts_with(bytes); };
    const std::size_t mark = starts(kUtf8Mark) ? 3 : starts("\xFF\xFE") || starts("\xFE\xFF") ? 2 : 0;
    isUnicode_ = mark != 0;
    if (starts("\xFF\xFE") || (head.size() > 1 && head[0] != 0 && head[1] == 0))
        encoding_ = Encoding::kLittleEndian;
    else if (starts("\xFE\xFF") || (head.size() > 1 && head[0] == 0 && head[1] != 0))
        encoding_ = Encoding::kBigEndian;
    isUnicode_ = isUnicode_ || encoding_ != Encoding::kBytes;
    file_.Skip(mark);
    offset_ = mark;
}

std::string_view VcfBytes::Ahead() {
    if (encoding_ == Encoding::kBytes) return file_.Ahead();
    if (place_ == converted_.size()) FillFromUtf16();
    return std::string_view(converted_).substr(place_);
}

void VcfBytes::Skip(std::size_t count) {
    if (encoding_ == Encoding::kBytes) {
        file_.Skip(count);
        offset_ += count;
        return;
    }
    for (; count != 0; --count) {
        const auto byte = static_cast<unsigned char>(converted_[place_++]);
        offset_ += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 4 : 2;
    }
}

void VcfBytes::FillFromUtf16() {
    converted_.clear();
    place_ = 0;
    const auto byte = [&] {
        const auto value = static_cast<unsigned char>(file_.Ahead().front());
        file_.Skip(1);
        return value;
    };
    constexpr std::size_t kUnits = 16 * 1024;
    while (units_.size() < kUnits && !file_.AtEnd()) {
        const unsigned first = byte();
        if (file_.AtEnd()) break;  // half a unit is none
        const unsigned second = byte();
        units_.push_back(
            static_cast<char16_t>(encoding_ == Encoding::kLittleEndian ? second << 8 | first : first << 8 | second));
    }
    std::u16string_view whole = units_;
    const bool waits = !whole.empty() && (whole.back() & 0xFC00) == 0xD800 && !file_.AtEnd();
    if (waits) whole.remove_suffix(1);
    converted_ = ToUtf8(whole);
    units_.erase(0, whole.size());
}

VcfLines::VcfLines(const std::filesystem::path& path, const std::string& shownName,
                   bool (*isWanted)(std::string_view front))
    : bytes_(path, shownName), isWanted_(isWanted) {}

// Takes bytes up to the line's end, at most so many; whether the end is there.
bool VcfLines::TakePiece(std::string* text, std::size_t most, char& last) {
    std::size_t taken = 0;
    for (std::string_view ahead = bytes_.Ahead(); !ahead.empty() && taken < most; ahead = bytes_.Ahead()) {
        ahead = ahead.substr(0, most - taken);
        const std::size_t end = FindLineEnd(ahead);
        for (std::size_t i = end; i-- > 0;) {
            if (IsBlank(ahead[i])) continue;
            last = ahead[i];
            break;
        }
        if (text != nullptr) text->append(ahead.substr(0, end));
        taken += end;
        if (end == ahead.size()) {
            bytes_.Skip(end);
            continue;
        }
        afterReturn_ = ahead[end] == '\r';
        bytes_.Skip(end + 1);
        return true;
    }
    return bytes_.Ahead().empty();
}

// Looks at the line that comes next, empty ones too; false at the end of the file.
bool VcfLines::LookAtNext() {
    if (hasNext_) return true;
    nextStart_ = bytes_.Offset();
    if (bytes_.Ahead().empty()) return false;
    next_.clear();
    nextLast_ = 0;
    ++nextNumber_;
    isWhole_ = TakePiece(&next_, kFront, nextLast_);
    nextHasColon_ = next_.find(':') != std::string::npos;
    hasNext_ = true;
    return true;
}

void VcfLines::TakeRest(std::string* text, char& last) {
    hasNext_ = false;
    if (!isWhole_) TakePiece(text, static_cast<std::size_t>(-1), last);
    isWhole_ = true;
    if (afterReturn_ && bytes_.Ahead().starts_with('\n')) bytes_.Skip(1);
    afterReturn_ = false;
    end_ = bytes_.Offset();
}

// What the line tells that came to the text.
void VcfLines::Judge(const std::string& text, Judged& judged) {
    judged.hasColon = judged.hasColon || nextHasColon_;
    if (judged.isLong || (isWhole_ && text.size() < kFront)) return;
    judged.isLong = true;
    judged.isWanted = isWanted_(text);
}

VcfLines::Join VcfLines::JoinOf(const std::string& text, Judged& judged) {
    const auto isIn = [&](VcfEncoding encoding) {
        if (!judged.hasColon) return false;
        if (!judged.encoding) judged.encoding = EncodingOf(text);
        return *judged.encoding == encoding;
    };
    if (judged.last == '=' && isIn(VcfEncoding::kQuotedPrintable))
        return IsStraySoftBreak(text, next_) ? Join::kNone : Join::kSoftBreak;
    if (next_.empty()) return Join::kNone;
    if (IsBlank(next_.front())) return Join::kFold;
    if (!judged.hasColon || nextHasColon_ || IsFrame(text) || IsFrontOfProperty(next_)) return Join::kNone;
    return IsBase64(next_) && isIn(VcfEncoding::kBase64) ? Join::kBase64 : Join::kBreak;
}

bool VcfLines::Next(VcfLine& line) {
    for (;;) {
        if (!LookAtNext()) return false;
        if (nextLast_ != 0) break;
        TakeRest(nullptr, nextLast_);
    }
    line.text.swap(next_);
    if (line.text.starts_with(kUtf8Mark)) line.text.erase(0, kUtf8Mark.size());  // of a file that was joined to another
    line.number = nextNumber_;
    line.start = nextStart_;
    Judged judged;
    judged.last = nextLast_;
    Judge(line.text, judged);
    TakeRest(judged.isWanted ? &line.text : nullptr, judged.last);
    while (LookAtNext()) {
        const Join join = JoinOf(line.text, judged);
        if (join == Join::kNone) break;
        if (nextLast_ != 0 || join == Join::kSoftBreak) judged.last = nextLast_;
        if (judged.isWanted) {
            line.text.push_back(join == Join::kBreak ? VcfLine::kBreak : VcfLine::kFold);
            line.text.append(next_);
            Judge(line.text, judged);
        }
        TakeRest(judged.isWanted ? &line.text : nullptr, judged.last);
    }
    return true;
}

}  // namespace orvale
