#include "command/html/PageText.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "command/show/Wording.h"
#include "platform/Format.h"
#include "platform/Terminal.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// The base letters of U+00C0 to U+017F; a star for what is none.
constexpr std::u16string_view kLatinBases =
    u"aaaaaaaceeeeiiiidnooooo*ouuuuytsaaaaaaaceeeeiiiidnooooo*ouuuuyty"
    u"aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllll"
    u"lllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(kLatinBases.size() == 0x180 - 0xC0);

char16_t BaseOf(char16_t unit) {
    if (unit >= 0xC0 && unit < 0x180 && kLatinBases[unit - 0xC0] != u'*') return kLatinBases[unit - 0xC0];
    constexpr std::u16string_view kGreek = u"άαέεήηίιόούυώωϊιϋυΐιΰυ";
    for (std::size_t i = 0; i + 1 < kGreek.size(); i += 2)
        if (unit == kGreek[i]) return kGreek[i + 1];
    return unit;
}

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

// Whether a word may begin with it as a name does: no sign, figure or blank of the scripts that have such.
bool BeginsName(char16_t unit) {
    if (unit < 0x80) return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
    const bool isSign = unit < 0xC0 || unit == 0xD7 || unit == 0xF7 || (unit >= 0x2000 && unit < 0x2C00) ||
                        (unit >= 0x3000 && unit < 0x3041) || unit >= 0xFE00 || (unit >= 0xD800 && unit < 0xF900) ||
                        (unit >= 0x300 && unit < 0x370);
    return !isSign && !IsSpace(unit);
}

bool HasCapitals(char16_t unit) {
    return unit < 0x590 || (unit >= 0x1E00 && unit < 0x2000);
}

// The capital of a letter of the scripts that have capitals: the one that gives it back.
char16_t Capital(char16_t unit) {
    if (unit >= u'a' && unit <= u'z') return static_cast<char16_t>(unit - 32);
    if (unit == u'ß') return u'S';
    for (const int distance : {32, 1, 80, 48})
        if (HasCapitals(unit) && unit >= 0xC0 + distance) {
            const auto candidate = static_cast<char16_t>(unit - distance);
            if (candidate != unit && ToLower(candidate) == unit) return candidate;
        }
    return unit;
}

constexpr std::array kShortMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

template <class... Numbers>
std::string Printed(const char* format, Numbers... numbers) {
    char text[64];
    std::snprintf(text, sizeof text, format, numbers...);
    return text;
}

std::optional<std::string> Ascii(std::u16string_view text, std::size_t most) {
    text = Trim(text);
    if (text.empty() || text.size() > most) return std::nullopt;
    std::string plain;
    for (const char16_t unit : text) {
        if (unit < 0x20 || unit > 0x7E) return std::nullopt;
        plain += static_cast<char>(unit);
    }
    return plain;
}

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kDigits = "0123456789";

bool OnlyOf(std::string_view text, std::initializer_list<std::string_view> sets) {
    return std::all_of(text.begin(), text.end(), [&](char c) {
        return std::any_of(sets.begin(), sets.end(),
                           [&](std::string_view set) { return set.find(c) != std::string_view::npos; });
    });
}

bool IsHost(std::string_view host) {
    return !host.empty() && host.front() != '.' && host.front() != '-' && host.find("..") == std::string_view::npos &&
           OnlyOf(host, {kLetters, kDigits, ".-"});
}

}  // namespace

std::u16string Initials(std::u16string_view name) {
    std::u16string initials;
    bool atStart = true;
    for (const char16_t unit : name) {
        if (atStart && BeginsName(unit)) {
            if (!HasCapitals(unit)) return initials.empty() ? std::u16string(1, unit) : initials;
            initials += Capital(unit);
        }
        atStart = IsSpace(unit) || unit == u'-' || (atStart && !BeginsName(unit));
    }
    return initials.size() > 2 ? std::u16string{initials.front(), initials.back()} : initials;
}

Markup Avatar(std::u16string_view name) {
    const std::u16string initials = Initials(name);
    const Pieces& pieces = Pieces::OfPage();
    return initials.empty() ? pieces.Make("icon", {{"name", "contacts"}}) : TextMarkup(pieces, initials);
}

std::size_t ColourOf(std::u16string_view name) {
    std::uint32_t hash = 2166136261;  // FNV-1a
    for (const char16_t unit : SortKey(name))
        hash = (hash ^ unit) * 16777619;
    return (hash ^ hash >> 15) % kColours;
}

std::u16string SortKey(std::u16string_view name) {
    std::u16string key;
    for (const char16_t unit : Trim(name))
        key += BaseOf(ToLower(unit));
    return key;
}

std::u16string LetterOf(std::u16string_view sortKey) {
    if (sortKey.empty() || !BeginsName(sortKey.front())) return u"#";
    return {Capital(sortKey.front())};
}

std::u16string Snippet(std::u16string_view text, std::size_t most) {
    std::u16string line;
    for (const char16_t unit : text.substr(0, 4 * most)) {
        const bool blank = IsSpace(unit);
        if (blank && (line.empty() || line.back() == u' ')) continue;
        if (line.size() >= most && (unit & 0xFC00) != 0xDC00) {
            line += u'…';
            break;
        }
        line += blank ? u' ' : unit;
    }
    return line;
}

std::string CountText(std::size_t count) {
    std::string text = std::to_string(count);
    for (std::size_t place = text.size(); place > 3;) {
        place -= 3;
        text.insert(place, ",");
    }
    return text;
}

std::string Capitalised(std::string_view words) {
    std::string text(words);
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z')
        text.front() = static_cast<char>(text.front() - 32);
    return text;
}

std::string ShortDay(const CalendarFields& day) {
    return Printed("%d %s %d", day.day, kShortMonths.at(static_cast<std::size_t>(day.month - 1)), day.year);
}

std::string IsoDay(const CalendarFields& day) {
    return Printed("%04d-%02d-%02d", day.year, day.month, day.day);
}

std::string IsoMoment(const CalendarFields& m) {
    return IsoDay(m) + Printed("T%02d:%02d:%02d", m.hour, m.minute, m.second);
}

std::int64_t OrderOf(const CalendarFields& m) {
    return ((((m.year * 12LL + m.month) * 31 + m.day) * 24 + m.hour) * 60 + m.minute) * 60 + m.second;
}

std::optional<CalendarFields> MomentOf(std::u16string_view text) {
    text = Trim(text);
    std::array<int, 6> parts{};  // year, month, day, hour, minute, second
    std::size_t count = 0;
    constexpr std::array<std::u16string_view, 6> kBefore{u"", u"-/.", u"-/.", u" T", u":", u":"};
    for (; count < parts.size() && !text.empty(); ++count) {
        if (count != 0) {
            if (kBefore.at(count).find(text.front()) == std::u16string_view::npos) return std::nullopt;
            text.remove_prefix(1);
        }
        const std::size_t most = count == 0 ? 4 : 2;
        std::size_t digits = 0;
        for (; digits < most && digits < text.size() && IsDigit(text[digits]); ++digits)
            parts.at(count) = parts.at(count) * 10 + (text[digits] - u'0');
        if (digits == 0 || (count == 0 && digits != most)) return std::nullopt;
        text.remove_prefix(digits);
    }
    const CalendarFields fields{parts[0], parts[1], parts[2], parts[3], parts[4], parts[5]};
    const bool isWhole = text.empty() && (count == 3 || count >= 5);
    return isWhole && IsValid(fields) && fields.year >= 100 ? std::optional(fields) : std::nullopt;
}

void Rows::Add(std::string_view icon, std::string_view what, const Markup& value) {
    const Markup sign = icon == icon_ ? Markup() : pieces_.Make("icon", {{"name", icon}});
    icon_ = icon;
    pieces_.Add(html_, "row", {{"icon", sign}, {"what", Capitalised(what)}, {"value", value}});
}

void Rows::Add(std::string_view icon, std::string_view what, std::u16string_view value) {
    Add(icon, what, TextMarkup(pieces_, value));
}

void Rows::AddQuiet(std::string_view what, std::u16string_view value) {
    pieces_.Add(html_, "quiet-row", {{"what", Capitalised(what)}, {"value", value}});
}

void Rows::AddQuiet(std::string_view what, std::int64_t number) {
    AddQuiet(what, FromUtf8(std::to_string(number)));
}

// Digits and a plus in front, with what is written between them left out: "*" and "#" begin a phone's service codes.
Markup PhoneLink(const Pieces& pieces, std::u16string_view text) {
    const auto plain = Ascii(text, 32);
    if (!plain || !OnlyOf(*plain, {kDigits, "+ ()./-"}) || plain->rfind('+') + 1 > 1) return TextMarkup(pieces, text);
    std::string number;
    for (const char c : *plain)
        if (c == '+' || (c >= '0' && c <= '9')) number += c;
    if (number.size() < 3) return TextMarkup(pieces, text);
    return pieces.Make("link", {{"address", "tel:" + number}, {"text", text}});
}

Markup MailLink(const Pieces& pieces, std::u16string_view text) {
    const auto plain = Ascii(text, 254);
    const std::size_t at = plain ? plain->find('@') : std::string::npos;
    if (at == std::string::npos || at == 0 || !OnlyOf(plain->substr(0, at), {kLetters, kDigits, "._+-"}) ||
        !IsHost(plain->substr(at + 1)))
        return TextMarkup(pieces, text);
    return pieces.Make("link", {{"address", "mailto:" + *plain}, {"text", text}});
}

Markup WebLink(const Pieces& pieces, std::u16string_view text) {
    const auto plain = Ascii(text, 2000);
    for (const std::string_view scheme : {"http://", "https://"}) {
        if (!plain || !EqualsNoCase(FromUtf8(plain->substr(0, scheme.size())), FromUtf8(scheme))) continue;
        const std::size_t hostEnd = std::min(plain->find_first_of("/?#", scheme.size()), plain->size());
        std::string_view host = std::string_view(*plain).substr(scheme.size(), hostEnd - scheme.size());
        if (const std::size_t colon = host.find(':'); colon != std::string_view::npos) {
            if (!OnlyOf(host.substr(colon + 1), {kDigits})) break;
            host = host.substr(0, colon);
        }
        if (!IsHost(host) || !OnlyOf(plain->substr(hostEnd), {kLetters, kDigits, "/?#&=%+-._~:,;@!$()*"})) break;
        return pieces.Make("link-away", {{"address", scheme == "http://" ? "http://" + plain->substr(7)
                                                                         : "https://" + plain->substr(8)},
                                         {"text", text}});
    }
    return TextMarkup(pieces, text);
}

Markup TextMarkup(const Pieces& pieces, std::u16string_view text) {
    return pieces.Make("text", {{"text", text}});
}

}  // namespace orvale
