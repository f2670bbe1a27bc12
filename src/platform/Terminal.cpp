#include "platform/Terminal.h"

#include <unistd.h>
#include <wchar.h>

#include "platform/KeptLocale.h"

namespace orvale {

bool IsTerminal(StandardStream stream) {
    return isatty(static_cast<int>(stream)) != 0;
}

int DisplayWidth(char32_t character) {
    if (character >= 0x20 && character < 0x7F) return 1;
    // wcwidth looks at the thread's locale and has no sister that takes one.
    static const KeptLocale unicode(LC_CTYPE_MASK, "C.UTF-8");
    if (unicode.Get() == nullptr) return 1;
    const locale_t before = uselocale(unicode.Get());
    const int width = wcwidth(static_cast<wchar_t>(character));
    uselocale(before);
    return width < 0 ? 1 : width;
}

std::size_t DisplayWidth(std::u16string_view text) {
    std::size_t width = 0;
    while (!text.empty())
        width += static_cast<std::size_t>(DisplayWidth(TakeCharacter(text)));
    return width;
}

char32_t TakeCharacter(std::u16string_view& text) {
    const char32_t first = text[0];
    const bool pair = first >= 0xD800 && first < 0xDC00 && text.size() > 1 && text[1] >= 0xDC00 && text[1] < 0xE000;
    const char32_t character = pair ? 0x10000 + ((first - 0xD800) << 10) + (text[1] - 0xDC00U) : first;
    text.remove_prefix(pair ? 2 : 1);
    return character;
}

}  // namespace orvale
