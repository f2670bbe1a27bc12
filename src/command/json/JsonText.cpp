#include "command/json/JsonText.h"

#include <algorithm>
#include <cstring>

#include "platform/Text.h"

namespace orvale {
namespace {

// Deeper than any document of ours; what is deeper isn't one, and is refused before it costs anything.
constexpr std::size_t kDeepest = 32;

bool IsSpaceByte(int c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

JsonText::JsonText(const std::filesystem::path& path, std::string shownName) : shownName_(std::move(shownName)) {
    const std::u16string name = FromUtf8(path.native());
    std::error_code error = std::make_error_code(std::errc::illegal_byte_sequence);
    if (ToUtf8(name) != path.native() ||
        file_.Open(name.c_str(), CFile::kModeRead | CFile::kShareExclusive, &error) == 0)
        FailFile(shownName_, "", SystemReason(error));
    if (Look() == 0xEF) {  // a byte order mark does no harm
        for (const int byte : {0xEF, 0xBB, 0xBF})
            if (static_cast<unsigned char>(Take()) != byte) Fail("no JSON document");
    }
}

int JsonText::Look() {
    const std::string_view ahead = file_.Ahead();
    return ahead.empty() ? kNothing : static_cast<unsigned char>(ahead.front());
}

char JsonText::Take() {
    const int c = Look();
    if (c == kNothing) FailAtEnd();
    file_.Skip(1);
    if (c == '\n') ++line_;
    return static_cast<char>(c);
}

int JsonText::Peek() {
    while (IsSpaceByte(Look()))
        Take();
    return Look();
}

bool JsonText::TakeIf(char wanted) {
    if (Peek() != wanted) return false;
    Take();
    return true;
}

void JsonText::Expect(char wanted) {
    if (TakeIf(wanted)) return;
    if (Look() == kNothing) FailAtEnd();
    Fail(std::string("expected '") + wanted + "'");
}

// Takes the rest of a string behind its opening quote, a buffer's worth at a time.
void JsonText::TakeString(std::string& text) {
    for (char c = 0; c != '"';) {
        const std::string_view ahead = file_.Ahead();
        if (ahead.empty()) FailAtEnd();
        const auto* const stop =
            std::find_if(ahead.begin(), ahead.end(), [](char at) { return at == '"' || at == '\\' || at == '\n'; });
        const auto end = static_cast<std::size_t>(stop - ahead.begin());
        text.append(ahead.substr(0, end));
        file_.Skip(end);
        if (end == ahead.size()) continue;
        c = Take();
        text.push_back(c);
        if (c == '\\') {
            text.push_back(Take());  // a quote among them doesn't end the string
            c = 0;
        }
    }
}

// Whether a number or a word, of which `c` was taken, ends here. All other values end by themselves.
bool JsonText::WordEnds(char c) {
    if (c == '"' || c == '}' || c == ']') return true;
    const int next = Look();
    return next == kNothing || IsSpaceByte(next) || std::strchr(",:{}[]\"", next) != nullptr;
}

std::string_view JsonText::TakeValue() {
    text_.clear();
    std::size_t depth = 0;
    Peek();
    for (;;) {
        const char c = Take();
        text_.push_back(c);
        if (c == '\n') {
            // The indent, which is half of a document, isn't passed on.
            while (Look() == ' ')
                file_.Skip(1);
        } else if (c == '"') {
            TakeString(text_);
        } else if (c == '{' || c == '[') {
            if (++depth > kDeepest) Fail("nested too deeply");
        } else if (c == '}' || c == ']') {
            if (depth == 0) Fail(std::string("unexpected '") + c + "'");
            --depth;
        }
        if (depth == 0 && WordEnds(c)) return text_;
    }
}

void JsonText::FailAtEnd() const {
    const std::string place = "line " + std::to_string(line_);
    throw JsonEndsEarly(ExitCode::kFailed, ErrorLine(shownName_, place, "the document ends too early"));
}

void JsonText::Fail(std::string_view reason) const {
    FailFile(shownName_, "line " + std::to_string(line_), reason);
}

}  // namespace orvale
