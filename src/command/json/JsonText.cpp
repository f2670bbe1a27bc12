#include "command/json/JsonText.h"

#include <cerrno>
#include <cstring>

#include "command/CommandError.h"

namespace orvale {
namespace {

// Deeper than any document of ours; what is deeper isn't one, and is refused before it costs anything.
constexpr std::size_t kDeepest = 32;

bool IsSpaceByte(int c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

JsonText::JsonText(const std::filesystem::path& path, std::string shownName) : shownName_(std::move(shownName)) {
    errno = 0;
    in_.open(path, std::ios::binary);
    if (!in_) FailFile(shownName_, "", errno != 0 ? std::strerror(errno) : "can't be read");
    if (Look() == 0xEF) {  // a byte order mark does no harm
        for (const int byte : {0xEF, 0xBB, 0xBF})
            if (static_cast<unsigned char>(Take()) != byte) Fail("no JSON document");
    }
}

int JsonText::Look() {
    return in_.peek();
}

char JsonText::Take() {
    const int c = in_.get();
    if (c == std::ifstream::traits_type::eof()) Fail("the document ends too early");
    if (c == '\n') ++line_;
    return static_cast<char>(c);
}

char JsonText::Peek() {
    while (IsSpaceByte(Look()))
        Take();
    const int c = Look();
    return c == std::ifstream::traits_type::eof() ? '\0' : static_cast<char>(c);
}

bool JsonText::TakeIf(char wanted) {
    if (Peek() != wanted || wanted == '\0') return false;
    Take();
    return true;
}

void JsonText::Expect(char wanted) {
    if (TakeIf(wanted)) return;
    if (Look() == std::ifstream::traits_type::eof()) Fail("the document ends too early");
    Fail(std::string("expected '") + wanted + "'");
}

std::string JsonText::TakeValue() {
    std::string text;
    std::size_t depth = 0;
    bool inString = false;
    Peek();
    do {
        const char c = Take();
        text.push_back(c);
        if (inString) {
            if (c == '\\')
                text.push_back(Take());
            else if (c == '"')
                inString = false;
        } else if (c == '"') {
            inString = true;
        } else if (c == '{' || c == '[') {
            if (++depth > kDeepest) Fail("nested too deeply");
        } else if (c == '}' || c == ']') {
            if (depth == 0) Fail(std::string("unexpected '") + c + "'");
            --depth;
        }
        const int next = Look();
        // A number or a word ends where something else begins; all other values end by themselves.
        const bool wordGoesOn = next != std::ifstream::traits_type::eof() && !IsSpaceByte(next) &&
                                std::strchr(",:{}[]\"", next) == nullptr && c != '"' && c != '}' && c != ']';
        if (!inString && depth == 0 && !wordGoesOn) return text;
    } while (true);
}

void JsonText::Fail(std::string_view reason) const {
    FailFile(shownName_, "line " + std::to_string(line_), reason);
}

}  // namespace orvale
