#include "command/exchange/VcfText.h"

#include "platform/Text.h"

namespace orvale {
namespace {

// A byte that a vCard can't have.
bool IsControl(char c) {
    return c >= 0 && IsLeftOutOfVcf(static_cast<char16_t>(c));
}

}  // namespace

bool IsLeftOutOfVcf(char16_t unit) {
    return (unit < u' ' && unit != u'\t' && unit != u'\r' && unit != u'\n') || unit == 0x7F;
}

void AppendVcfText(std::string& line, std::u16string_view text, bool separatorsToo, std::size_t& replaced) {
    const std::string bytes = ToUtf8(text, &replaced);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
        if (c == '\r' || c == '\n') {
            line += "\\n";
        } else if (c == '\\' || (separatorsToo && (c == ';' || c == ','))) {
            line += '\\';
            line += c;
        } else if (!IsControl(c)) {
            line += c;
        }
    }
}

bool HasVcfEscapes(std::string_view bytes) {
    return bytes.find('\\') != std::string_view::npos || bytes.find('\r') != std::string_view::npos ||
           bytes.find('\n') != std::string_view::npos;
}

void UnescapeVcfText(std::u16string& text, VcfVersion version) {
    std::u16string out;
    for (std::size_t from = 0; from < text.size(); ++from) {
        const char16_t unit = text[from];
        const char16_t next = from + 1 < text.size() ? text[from + 1] : u'\0';
        if (unit == u'\r' || unit == u'\n') {
            if (unit == u'\r' && next == u'\n') ++from;
            out += u"\r\n";
        } else if (unit == u'\\' && (next == u';' || next == u',' || next == u':')) {
            out += next;
            ++from;
        } else if (unit == u'\\' && version != VcfVersion::k21 && (next == u'n' || next == u'N')) {
            out += u"\r\n";
            ++from;
        } else if (unit == u'\\' && version != VcfVersion::k21 && next == u'\\') {
            out += u'\\';
            ++from;
        } else {
            out += unit;
        }
    }
    text = std::move(out);
}

void AppendVcfParameter(std::string& line, std::u16string_view text, std::size_t& replaced) {
    const std::string bytes = ToUtf8(text, &replaced);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') continue;
        if (c == '\r' || c == '\n')
            line += "^n";
        else if (c == '"')
            line += "^'";
        else if (c == '^')
            line += "^^";
        else if (!IsControl(c))
            line += c;
    }
}

std::u16string DecodeVcfParameter(std::string_view value) {
    const std::u16string raw = FromUtf8(value);
    std::u16string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char16_t next = i + 1 < raw.size() ? raw[i + 1] : u'\0';
        const bool isCode = (raw[i] == u'^' && (next == u'n' || next == u'\'' || next == u'^')) ||
                            (raw[i] == u'\\' && (next == u'n' || next == u'N'));
        if (raw[i] == u'\r') {
            text += u"\r\n";
            continue;
        }
        if (!isCode) {
            text += raw[i];
            continue;
        }
        ++i;
        text += next == u'\'' ? u"\"" : next == u'^' ? u"^" : u"\r\n";
    }
    return text;
}

}  // namespace orvale
