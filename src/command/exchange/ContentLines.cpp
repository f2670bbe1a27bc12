#include "command/exchange/ContentLines.h"

#include <algorithm>

namespace orvale {
namespace {

bool IsQuotedPrintable(std::string_view text) {
    const std::string head(text.substr(0, text.find(':')));
    return head.find("QUOTED-PRINTABLE") != std::string::npos || head.find("quoted-printable") != std::string::npos;
}

}  // namespace

ContentLine SplitContentLine(std::string_view text) {
    ContentLine line;
    bool quoted = false;
    std::size_t colon = 0;
    for (; colon < text.size() && (quoted || text[colon] != ':'); ++colon)
        if (text[colon] == '"') quoted = !quoted;
    if (colon == text.size()) return line;
    const std::string_view head = text.substr(0, colon);
    const std::size_t nameEnd = std::min(head.find(';'), head.size());
    line.name = head.substr(0, nameEnd);
    std::transform(line.name.begin(), line.name.end(), line.name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    line.parameters = head.substr(nameEnd);
    line.value = text.substr(colon + 1);
    return line;
}

// Takes the next line of the file behind what a line holds, without its first `dropped` bytes.
void ContentLines::Append(LineInput::Line& line, std::size_t dropped) {
    LineInput::Line next;
    if (!input_.Next(next)) return;
    const std::size_t room = kLongest - std::min(line.text.size(), kLongest);
    next.text.erase(0, dropped);
    line.cut = line.cut || next.cut || next.text.size() > room;
    line.text.append(next.text, 0, room);
    line.end = next.end;
}

bool ContentLines::Next(LineInput::Line& line) {
    do {
        if (!input_.Next(line)) return false;
    } while (line.text.empty());
    for (;;) {
        const int next = input_.Peek();
        if (isOld_ && line.text.ends_with('=') && IsQuotedPrintable(line.text)) {
            line.text.pop_back();
            if (next == -1) break;
            Append(line, 0);
        } else if (next == ' ' || next == '\t') {
            Append(line, isOld_ ? 0 : 1);
        } else {
            break;
        }
    }
    std::erase_if(line.text, [](char c) { return c == '\0' || c == '\r'; });
    return true;
}

}  // namespace orvale
