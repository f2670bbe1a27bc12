#include "platform/Text.h"

#include <langinfo.h>
#include <wctype.h>

#include <algorithm>
#include <bit>

#include "platform/KeptLocale.h"

namespace orvale {
namespace {

locale_t UnicodeLocale() {
    static const KeptLocale locale(LC_CTYPE_MASK, "C.UTF-8");
    return locale.Get();
}

constexpr char16_t kReplacement = 0xFFFD;

constexpr bool IsHighHalf(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool IsLowHalf(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Copies every byte or unit, with no way out at the first that isn't ASCII, so that it takes many at a time. Tells
// whether all were ASCII.
template <class From, class To>
bool CopyAscii(const From* __restrict from, std::size_t size, To* __restrict to) {
    std::make_unsigned_t<From> all = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const auto unit = static_cast<std::make_unsigned_t<From>>(from[i]);
        to[i] = static_cast<To>(unit);
        all |= unit;
    }
    return all < 0x80;
}

char* PutUtf8(char* out, char32_t code) {
    if (code < 0x80) {
        *out++ = static_cast<char>(code);
        return out;
    }
    const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned char kLead[] = {0, 0xC0, 0xE0, 0xF0};
    *out++ = static_cast<char>(kLead[following] | code >> 6 * following);
    for (int i = following - 1; i >= 0; --i)
        *out++ = static_cast<char>(0x80 | (code >> 6 * i & 0x3F));
    return out;
}

}  // namespace

bool IsSpaceBeyondAscii(char16_t unit) {
    const locale_t locale = UnicodeLocale();
    return locale != nullptr && iswspace_l(unit, locale) != 0;
}

char16_t ToLowerBeyondAscii(char16_t unit) {
    const locale_t locale = UnicodeLocale();
    return locale != nullptr ? static_cast<char16_t>(towlower_l(unit, locale)) : unit;
}

bool SameUnitsNoCase(std::u16string_view a, std::u16string_view b) {
    if (a.empty() || SameUnits(a, b)) return true;  // as most that are asked for
    return std::equal(a.begin(), a.end(), b.begin(),
                      [](char16_t x, char16_t y) { return x == y || ToLower(x) == ToLower(y); });
}

bool EndsWithNoCase(std::u16string_view text, std::u16string_view suffix) {
    return text.size() >= suffix.size() && EqualsNoCase(text.substr(text.size() - suffix.size()), suffix);
}

std::u16string Replace(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t start = 0;;) {
        const std::size_t found = text.find(from, start);
        if (found == std::u16string_view::npos) return result.append(text.substr(start));
        result.append(text.substr(start, found - start)).append(to);
        start = found + from.size();
    }
}

std::int32_t ToNumber(std::u16string_view text) {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative || (!text.empty() && text.front() == u'+')) text.remove_prefix(1);
    std::uint32_t number = 0;
    for (; !text.empty() && text.front() >= u'0' && text.front() <= u'9'; text.remove_prefix(1))
        number = number * 10 + (text.front() - u'0');
    return static_cast<std::int32_t>(negative ? 0 - number : number);
}

std::string ToUtf8(std::u16string_view text, std::size_t* replaced, char16_t replacement) {
    std::string out(text.size(), '\0');
    if (CopyAscii(text.data(), text.size(), out.data())) return out;  // as most texts are
    out.resize(3 * text.size());                                      // no unit becomes more than three bytes
    char* to = out.data();
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit < 0x80) {
            *to++ = static_cast<char>(unit);
        } else if (IsHighHalf(unit) && i + 1 < text.size() && IsLowHalf(text[i + 1])) {
            to = PutUtf8(to, 0x10000 + ((unit - 0xD800U) << 10) + (text[++i] - 0xDC00U));
        } else if (IsHighHalf(unit) || IsLowHalf(unit)) {
            to = PutUtf8(to, replacement);
            if (replaced != nullptr) ++*replaced;
        } else {
            to = PutUtf8(to, unit);
        }
    }
    out.resize(static_cast<std::size_t>(to - out.data()));
    return out;
}

std::u16string FromUtf8(std::string_view bytes, std::size_t* replaced) {
    std::u16string out;
    AssignFromUtf8(out, bytes, replaced);
    return out;
}

void AssignFromUtf8(std::u16string& out, std::string_view bytes, std::size_t* replaced) {
    out.resize(bytes.size());  // no byte becomes more than one unit
    out.resize(WidenUtf8(bytes, out.data(), replaced));
}

std::size_t WidenUtf8(std::string_view bytes, char16_t* to, std::size_t* replaced) {
    if (WidenAscii(bytes, to)) return bytes.size();
    const std::size_t ascii = AsciiPrefix(bytes);  // it stands already
    char16_t* next = to + ascii;
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    for (std::size_t i = ascii; i < bytes.size();) {
        for (; i < bytes.size() && byteAt(i) < 0x80; ++i)
            *next++ = byteAt(i);
        if (i == bytes.size()) break;
        const unsigned char lead = byteAt(i);
        const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
        char32_t code = length != 0 ? lead & (0x7FU >> length) : 0;
        bool good = length != 0 && i + length <= bytes.size();
        for (std::size_t k = 1; good && k < length; ++k) {
            good = (byteAt(i + k) & 0xC0) == 0x80;
            code = code << 6 | (byteAt(i + k) & 0x3F);
        }
        constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
        good = good && code >= kSmallest[length] && code <= 0x10FFFF && !(code >= 0xD800 && code < 0xE000);
        if (!good) {
            *next++ = kReplacement;
            if (replaced != nullptr) ++*replaced;
            ++i;
            continue;
        }
        if (code >= 0x10000) {
            *next++ = static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            *next++ = static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            *next++ = static_cast<char16_t>(code);
        }
        i += length;
    }
    return static_cast<std::size_t>(next - to);
}

// Eight bytes at a time, the last eight overlapping those before them. A byte that is zero or beyond ASCII sets the top
// bit of itself less one, or of itself; what a zero borrows from its neighbours changes nothing of that.
bool WidenAscii(std::string_view bytes, char16_t* to) {
    using Bytes [[gnu::vector_size(8)]] = unsigned char;
    using Units [[gnu::vector_size(16)]] = std::uint16_t;
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    std::uint64_t marks = 0;
    if (bytes.size() < sizeof(Bytes)) {
        for (const char byte : bytes) {
            const auto unit = static_cast<unsigned char>(byte);
            *to++ = unit;
            marks |= (unit - std::uint64_t{1}) | unit;
        }
        return marks < 0x80;
    }
    const auto widenAt = [&](std::size_t place) {
        Bytes eight;
        std::memcpy(&eight, bytes.data() + place, sizeof eight);
        const auto number = std::bit_cast<std::uint64_t>(eight);
        marks |= (number - kOnes) | number;
        const Units units = __builtin_convertvector(eight, Units);
        std::memcpy(to + place, &units, sizeof units);
    };
    const std::size_t last = bytes.size() - sizeof(Bytes);
    for (std::size_t place = 0; place < last; place += sizeof(Bytes))
        widenAt(place);
    widenAt(last);
    return (marks & kOnes << 7) == 0;
}

bool IsWellFormed(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsLowHalf(text[i])) return false;
        if (IsHighHalf(text[i]) && (++i == text.size() || !IsLowHalf(text[i]))) return false;
    }
    return true;
}

}  // namespace orvale
