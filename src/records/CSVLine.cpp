#include "records/CSVLine.h"

#include <algorithm>

#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::u16string_view kComma = u",";

bool HasOddQuotes(std::u16string_view text) {
    return std::count(text.begin(), text.end(), u'"') % 2 != 0;
}

}  // namespace

std::u16string_view TakeCSVCaption(std::u16string_view& rest) {
    return Trim(TakeToken(rest, kComma));
}

std::u16string_view TakeCSVValue(std::u16string_view& rest, std::u16string& joined, bool* neverCloses) {
    const std::u16string_view first = Trim(TakeToken(rest, kComma));
    if (first.empty() || first.front() != u'"' || !HasOddQuotes(first)) return first;
    joined = first;
    std::u16string_view ahead = rest;
    bool open = true;
    while (open && !ahead.empty()) {
        const std::u16string_view piece = TakeToken(ahead, kComma);
        joined.append(kComma).append(piece);
        open = !HasOddQuotes(piece);
    }
    if (open) {
        if (!rest.empty() && rest.back() == u',') rest.remove_suffix(1);
        if (neverCloses != nullptr) *neverCloses = true;
        return first;
    }
    rest = ahead;
    return joined;
}

std::u16string_view UnquoteCSV(std::u16string_view value, std::u16string& undoubled) {
    if (value.empty() || value.front() != u'"' || value.back() != u'"') return value;
    if (value.size() == 1) return u"\r\n";  // a quote that is both first and last leaves a line end
    value = value.substr(1, value.size() - 2);
    if (FindUnit(value, u'"') == std::u16string_view::npos) return value;
    undoubled = Replace(value, u"\"\"", u"\"");
    return undoubled;
}

}  // namespace orvale
