#include "command/json/JsonText.h"

#include <algorithm>
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

bool JsonText::Fill() {
    constexpr std::size_t kReadAhead = 64 * 1024;
    buffer_.resize(kReadAhead);
    in_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.resize(static_cast<std::size_t>(in_.gcount()));
    start_ = 0;
    return !buffer_.empty();
}

char JsonText::Take() {
    const int c = Look();
    if (c == kNothing) Fail("the document ends too early");
    ++start_;
    if (c == '\n') ++line_;
    return static_cast<char>(c);
}

char JsonText::Peek() {
    while (IsSpaceByte(Look()))
        Take();
    const int c = Look();
    return c == kNothing ? '\0' : static_cast<char>(c);
}

bool JsonText::TakeIf(char wanted) {
    if (Peek() != wanted || wanted == '\0') return false;
    Take();
    return true;
}

void JsonText::Expect(char wanted) {
    if (TakeIf(wanted)) return;
    if (Look() == kNothing) Fail("the document ends too early");
    Fail(std::string("expected '") + wanted + "'");
}

// Takes the rest of a string behind its opening quote, a buffer's worth at a time.
void JsonText::TakeString(std::string& text) {
    for (char c = 0; c != '"';) {
        if (Look() == kNothing) Fail("the document ends too early");
        const std::size_t end = std::min(buffer_.find_first_of("\"\\\n", start_), buffer_.size());
        text.append(buffer_, start_, end - start_);
        start_ = end;
        if (start_ == buffer_.size()) continue;
        c = Take();
        text.push_back(c);
        if (c == '\\') {
            text.push_back(Take());  // a quote among them doesn't end the string
            c = 0;
        }
    }
}

std::string JsonText::TakeValue() {
    std::string text;
    std::size_t depth = 0;
    Peek();
    for (;;) {
        const char c = Take();
        text.push_back(c);
        if (c == '"') {
            TakeString(text);
        } else if (c == '{' || c == '[') {
            if (++depth > kDeepest) Fail("nested too deeply");
        } else if (c == '}' || c == ']') {
            if (depth == 0) Fail(std::string("unexpected '") + c + "'");
            --depth;
        }
        const int next = Look();
        // A number or a word ends where something else begins; all other values end by themselves.
        const bool wordGoesOn = next != kNothing && !IsSpaceByte(next) && std::strchr(",:{}[]\"", next) == nullptr &&
                                c != '"' && c != '}' && c != ']';
        if (depth == 0 && !wordGoesOn) return text;
    }
}

void JsonText::Fail(std::string_view reason) const {
    FailFile(shownName_, "line " + std::to_string(line_), reason);
}

}  // namespace orvale
