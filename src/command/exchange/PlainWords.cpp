#include "command/exchange/PlainWords.h"

#include <algorithm>
#include <charconv>

#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::string_view kBlocks[] = {"p",  "div", "tr", "li", "h1", "h2",  "h3",    "h4",        "h5",
                                        "h6", "ul",  "ol", "br", "hr", "pre", "table", "blockquote"};
constexpr std::string_view kUnread[] = {"script", "style", "head", "title"};

template <std::size_t kSize>
bool IsOneOf(const std::string_view (&names)[kSize], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

char InSmall(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// The name of the tag that begins with "<" here, with its slash where it closes.
std::string TagName(std::string_view tag) {
    std::string name;
    for (std::size_t i = 1; i < tag.size() && i < 16; ++i) {
        const char c = InSmall(tag[i]);
        const bool isName = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || (c == '/' && i == 1);
        if (!isName) break;
        name += c;
    }
    return name;
}

std::string Character(std::string_view entity) {
    constexpr std::pair<std::string_view, const char*> kNamed[] = {
        {"amp", "&"},    {"lt", "<"},     {"gt", ">"},     {"quot", "\""},  {"apos", "'"},   {"nbsp", " "},
        {"Auml", "Ä"},   {"Ouml", "Ö"},   {"Uuml", "Ü"},   {"auml", "ä"},   {"ouml", "ö"},   {"uuml", "ü"},
        {"szlig", "ß"},  {"eacute", "é"}, {"egrave", "è"}, {"ecirc", "ê"},  {"agrave", "à"}, {"aacute", "á"},
        {"acirc", "â"},  {"ccedil", "ç"}, {"ntilde", "ñ"}, {"oacute", "ó"}, {"ocirc", "ô"},  {"iacute", "í"},
        {"uacute", "ú"}, {"aring", "å"},  {"oslash", "ø"}, {"aelig", "æ"},  {"euro", "€"},   {"pound", "£"},
        {"copy", "©"},   {"reg", "®"},    {"ndash", "–"},  {"mdash", "—"},  {"hellip", "…"}, {"bull", "•"},
        {"lsquo", "‘"},  {"rsquo", "’"},  {"ldquo", "“"},  {"rdquo", "”"},  {"laquo", "«"},  {"raquo", "»"}};
    for (const auto& [name, character] : kNamed)
        if (entity == name) return character;
    if (!entity.starts_with('#')) return {};
    entity.remove_prefix(1);
    const bool isHex = entity.starts_with('x') || entity.starts_with('X');
    if (isHex) entity.remove_prefix(1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(entity.data(), entity.data() + entity.size(), code, isHex ? 16 : 10);
    if (error != std::errc() || end != entity.data() + entity.size() || code < 0x20 || code > 0x10FFFF) return {};
    std::u16string units;
    if (code >= 0x10000) units += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    units += static_cast<char16_t>(code >= 0x10000 ? 0xDC00 + ((code - 0x10000) & 0x3FF) : code);
    return ToUtf8(units);
}

// Gathers words: blanks in a row are one, and so are line ends but for one empty line.
class Words {
 public:
    void Put(std::string_view bytes) {
        if (blank_ && !text_.empty() && !text_.ends_with('\n')) text_ += ' ';
        blank_ = false;
        text_ += bytes;
    }
    void Blank() { blank_ = true; }
    void EndLine() {
        blank_ = false;
        if (!text_.empty() && !text_.ends_with("\n\n")) text_ += '\n';
    }
    std::string Take() {
        text_.erase(text_.find_last_not_of('\n') + 1);
        return std::move(text_);
    }

 private:
    std::string text_;
    bool blank_ = false;
};

}  // namespace

std::string PlainWords(std::string_view html) {
    Words words;
    std::string unread;   // the element whose text isn't shown
    bool newLine = true;  // two tags of blocks in a row end one line
    for (std::size_t i = 0; i < html.size();) {
        const std::string_view rest = html.substr(i);
        if (rest[0] == '<') {
            const std::string_view close = rest.starts_with("<!--") ? "-->" : ">";
            const std::size_t end = rest.find(close);
            const std::string name = TagName(rest);
            if (!unread.empty()) {
                if (name == "/" + unread) unread.clear();
            } else if (IsOneOf(kUnread, name)) {
                unread = name;
            } else if (name == "br" || (!newLine && IsOneOf(kBlocks, name.substr(name.starts_with('/'))))) {
                words.EndLine();
                newLine = true;
            }
            i += end == std::string_view::npos ? rest.size() : end + close.size();
            continue;
        }
        ++i;
        if (!unread.empty()) continue;
        if (rest[0] == ' ' || rest[0] == '\t' || rest[0] == '\r' || rest[0] == '\n') {
            words.Blank();
            continue;
        }
        newLine = false;
        const std::size_t semicolon = rest[0] == '&' ? rest.substr(0, 12).find(';') : std::string_view::npos;
        const std::string character =
            semicolon != std::string_view::npos ? Character(rest.substr(1, semicolon - 1)) : std::string();
        words.Put(character.empty() ? rest.substr(0, 1) : character);
        if (!character.empty()) i += semicolon;
    }
    return words.Take();
}

}  // namespace orvale
