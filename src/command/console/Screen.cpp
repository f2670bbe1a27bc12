#include "command/console/Screen.h"

#include <algorithm>
#include <cstdlib>

#include "platform/Format.h"
#include "platform/Terminal.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kLabelWidth = 24;

// Takes a line off the front of a text: up to CR LF, LF or CR.
std::u16string_view TakeLine(std::u16string_view& text) {
    const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
    const std::u16string_view line = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with(u"\r\n"))
        text.remove_prefix(2);
    else if (!text.empty())
        text.remove_prefix(1);
    return line;
}

}  // namespace

bool SteersTerminal(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x061C || (c >= 0x200E && c <= 0x200F) ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

bool IsInvisible(char32_t c) {
    return c == 0x00AD || (c >= 0x200B && c <= 0x200D) || (c >= 0x2060 && c <= 0x2064) || c == 0xFEFF;
}

bool UseColor(ColorMode mode) {
    if (mode != ColorMode::kAuto) return mode == ColorMode::kAlways;
    const char* const noColor = std::getenv("NO_COLOR");
    return IsTerminal(StandardStream::kOutput) && (noColor == nullptr || *noColor == '\0');
}

std::string Visible(std::u16string_view text, bool all) {
    std::u16string out;
    while (!text.empty()) {
        const std::u16string_view before = text;
        const char32_t c = TakeCharacter(text);
        if (c == U'\t')
            out.push_back(u' ');
        else if (!SteersTerminal(c) && !(all && IsInvisible(c)))
            out.append(before.substr(0, before.size() - text.size()));
        else if (c < 0x20)
            out.append({u'^', static_cast<char16_t>(c + 0x40)});
        else
            out += Format(u"<U+%04X>", static_cast<std::uint32_t>(c));
    }
    return ToUtf8(out);
}

void Screen::Put(std::string_view text, Style style) {
    constexpr const char* kCodes[] = {"", "\033[1m", "\033[36m", "\033[2m"};
    if (!color_ || style == Style::kPlain || text.empty()) {
        out_ << text;
        return;
    }
    out_ << kCodes[static_cast<int>(style)] << text << "\033[0m";
}

void Screen::Row(std::string_view label, std::u16string_view value) {
    Put("  ");
    Put(label, Style::kLabel);
    out_ << std::string(label.size() < kLabelWidth ? kLabelWidth - label.size() : 1, ' ');
    PutBlock(value, 2 + kLabelWidth);
}

void Screen::PutBlock(std::u16string_view text, std::size_t indent, Style style) {
    Put(TakeLine(text), style);
    EndLine();
    while (!text.empty()) {
        out_ << std::string(indent, ' ');
        Put(TakeLine(text), style);
        EndLine();
    }
}

std::string Screen::Fit(std::u16string_view text, std::size_t width) {
    const std::u16string visible = FromUtf8(Visible(text));
    const std::size_t whole = DisplayWidth(visible);
    if (whole <= width) return ToUtf8(visible) + std::string(width - whole, ' ');
    std::u16string_view rest = visible;
    std::size_t used = 0;
    for (std::u16string_view next = rest; !next.empty();) {
        const auto columns = static_cast<std::size_t>(DisplayWidth(TakeCharacter(next)));
        if (used + columns > width - 1) break;
        used += columns;
        rest = next;
    }
    const std::u16string_view kept = std::u16string_view(visible).substr(0, visible.size() - rest.size());
    return ToUtf8(kept) + "…" + std::string(width - 1 - used, ' ');
}

}  // namespace orvale
