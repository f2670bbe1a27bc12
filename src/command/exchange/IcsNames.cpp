#include "command/exchange/IcsNames.h"

#include <algorithm>

#include "platform/Text.h"

namespace orvale::ics {

std::u16string PlainForm(std::u16string_view text) {
    std::u16string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;  // its LF comes
        if (unit == u'\r' || unit == u'\n')
            plain += u"\r\n";
        else if ((unit >= 0x20 && unit != 0x7F) || unit == u'\t')
            plain += unit;
    }
    const std::size_t first = plain.find_first_not_of(u" \t");
    if (first == std::u16string::npos) return u"-";
    plain.erase(plain.find_last_not_of(u" \t") + 1);
    plain.erase(0, first);
    return plain;
}

std::string CategoryName(std::int32_t category) {
    const NamedValue* const row = FindValue(kCalendarCategories, category);
    std::string name(row != nullptr ? row->caption : "");
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return name;
}

}  // namespace orvale::ics
