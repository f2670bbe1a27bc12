#include "command/exchange/VcfProperty.h"

#include <algorithm>

namespace orvale {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr char kFold = '\n';

std::string_view TrimBlanks(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The first of a character that stands outside of quotes.
std::size_t FindUnquoted(std::string_view text, char wanted) {
    const std::size_t found = text.find(wanted);
    if (text.substr(0, found).find('"') == kNone) return found;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (text[i] == wanted && !quoted) return i;
    }
    return quoted ? found : kNone;  // a quote that never ends is none
}

std::string_view TakeUpTo(std::string_view& rest, std::size_t end) {
    end = std::min(end, rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return TrimBlanks(piece);
}

std::string_view Unquote(std::string_view value) {
    if (value.starts_with('"')) value.remove_prefix(1);
    if (value.ends_with('"')) value.remove_suffix(1);
    return value;
}

// What a word says that stands alone, or as the value of TYPE or ENCODING.
void TakeWord(std::string_view word, VcfProperty& property) {
    if (const std::uint32_t bit = VcfTypeBit(word))
        property.types |= bit;
    else if (VcfSameName(word, "QUOTED-PRINTABLE"))
        property.encoding = VcfEncoding::kQuotedPrintable;
    else if (VcfSameName(word, "BASE64") || VcfSameName(word, "B"))
        property.encoding = VcfEncoding::kBase64;
}

void TakeParameter(std::string_view parameter, VcfProperty& property) {
    const std::size_t equals = parameter.find('=');
    if (equals == kNone) return TakeWord(parameter, property);
    const std::string_view name = TrimBlanks(parameter.substr(0, equals));
    std::string_view value = TrimBlanks(parameter.substr(equals + 1));
    if (VcfSameName(name, "TYPE") || VcfSameName(name, "ENCODING")) {
        for (value = Unquote(value); !value.empty();)
            TakeWord(Unquote(TakeUpTo(value, value.find(','))), property);
    } else if (VcfSameName(name, "CHARSET")) {
        property.charset = Unquote(value);
    } else if (VcfSameName(name, "PREF")) {
        property.types |= vcf::kPref;
    } else if (VcfSameName(name, "LABEL")) {
        property.label = Unquote(value);
    } else if (VcfSameName(name, vcf::kIdParameter)) {
        property.id = Unquote(value);
    }
}

}  // namespace

bool ParseVcfProperty(std::string_view line, VcfProperty& property) {
    property = VcfProperty();
    const std::size_t colon = FindUnquoted(line, ':');
    if (colon == kNone) return false;
    property.value = line.substr(colon + 1);
    std::string_view head = line.substr(0, colon);
    const auto quotes = std::count(head.begin(), head.end(), '"');
    const bool hasQuotes = quotes != 0 && quotes % 2 == 0;
    const auto end = [&] { return hasQuotes ? FindUnquoted(head, ';') : head.find(';'); };
    std::string_view name = TakeUpTo(head, end());
    if (const std::size_t dot = name.rfind('.'); dot != kNone) name.remove_prefix(dot + 1);
    property.name = name;
    while (!head.empty())
        TakeParameter(TakeUpTo(head, end()), property);
    property.rows = VcfRowsOf(property.name);
    if (!property.rows.empty()) property.kind = VcfKindOf(property.rows, property.types);
    return true;
}

bool VcfHeads::Parse(std::string_view line, VcfProperty& property) {
    constexpr std::size_t kLongest = 64;  // of those that are kept
    const std::size_t colon = line.find(':');
    if (colon == 0 || colon > kLongest) return ParseVcfProperty(line, property);
    const std::string_view text = line.substr(0, colon);
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    Head& head = heads_[(colon * 31 + byte(0) * 7U + byte(colon / 2) * 3U + byte(colon - 1)) % heads_.size()];
    if (head.text == text) {
        property = head.property;
        property.value = line.substr(colon + 1);
        return true;
    }
    if (!ParseVcfProperty(line, property)) return false;
    const bool isSimple = property.charset.empty() && property.id.empty() && property.label.empty();
    if (isSimple && text.find('"') == kNone) {
        head.text = text;
        head.property = property;
        head.property.value = {};
        head.property.name = std::string_view(head.text).substr(
            static_cast<std::size_t>(property.name.data() - text.data()), property.name.size());
    }
    return true;
}

void UnfoldVcfLine(std::string& text, VcfVersion version) {
    const auto isBlank = [&](std::size_t i) { return i < text.size() && (text[i] == ' ' || text[i] == '\t'); };
    std::size_t place = text.find(kFold);
    if (place == kNone) return;
    VcfProperty property;
    const bool isQuoted = ParseVcfProperty(text, property) && property.encoding == VcfEncoding::kQuotedPrintable;
    std::size_t to = place;
    const std::size_t mark = std::string_view(text).substr(0, place).find_last_not_of(" \t");
    char last = mark == kNone ? '\0' : text[mark];  // that is no blank
    for (; place < text.size(); ++place) {
        if (text[place] != kFold) {
            if (!isBlank(place)) last = text[place];
            text[to++] = text[place];
            continue;
        }
        if (isQuoted && last == '=') {
            text[to++] = kFold;
            last = kFold;
        } else if (isBlank(place + 1)) {
            if (version != VcfVersion::k21 || isBlank(place + 2)) ++place;
        }
    }
    text.resize(to);
}

}  // namespace orvale
