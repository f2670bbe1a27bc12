#include "command/html/Pieces.h"

#include <stdexcept>

#include "command/html/EmbeddedPage.h"
#include "platform/Terminal.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::string_view kPieceBegins = "<!-- piece: ";
constexpr std::string_view kCommentEnds = " -->";

// A file is written in lines, the page isn't.
std::string WithoutLines(std::string_view text) {
    std::string joined;
    bool atStart = true;
    for (const char c : text) {
        if (c == '\n') atStart = true;
        if (c == '\n' || (atStart && c == ' ')) continue;
        atStart = false;
        joined += c;
    }
    return joined;
}

// How a character stands in the page, where that isn't as it is.
std::string_view EntityOf(char16_t unit) {
    switch (unit) {
        case u'&':
            return "&amp;";
        case u'<':
            return "&lt;";
        case u'>':
            return "&gt;";
        case u'"':
            return "&quot;";
        case u'\'':
            return "&#39;";
        case u'`':
            return "&#96;";
        default:
            return {};
    }
}

// A control character as one that can be seen.
char16_t PictureOf(char16_t unit) {
    constexpr char16_t kPictures = 0x2400;
    if (unit < 0x20) return static_cast<char16_t>(kPictures + unit);
    return unit == 0x7F ? 0x2421 : 0xFFFD;
}

bool IsControl(char16_t unit) {
    return (unit < 0x20 && unit != u'\t' && unit != u'\n') || (unit >= 0x7F && unit < 0xA0);
}

}  // namespace

void AppendEscaped(std::string& out, std::u16string_view text) {
    std::size_t plain = 0;  // where the units begin that stand as they are
    const auto flush = [&](std::size_t end) {
        if (end > plain) out += ToUtf8(text.substr(plain, end - plain));
        plain = end + 1;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (const std::string_view entity = EntityOf(unit); !entity.empty()) {
            flush(i);
            out += entity;
        } else if (unit == u'\r') {
            flush(i);
            if (i + 1 == text.size() || text[i + 1] != u'\n') out += '\n';
        } else if (IsControl(unit)) {
            flush(i);
            out += ToUtf8(std::u16string(1, PictureOf(unit)));
        }
    }
    flush(text.size());
}

void Filling::Append(std::string& out) const {
    if (markup_ != nullptr)
        out += markup_->Html();
    else
        AppendEscaped(out, ownText_.empty() ? text_ : ownText_);
}

Pieces::Pieces(std::string_view text) {
    while ((text.remove_prefix(std::min(text.find(kPieceBegins), text.size())), !text.empty())) {
        text.remove_prefix(kPieceBegins.size());
        const std::size_t nameEnd = text.find(kCommentEnds);
        const std::string_view name = text.substr(0, nameEnd);
        text.remove_prefix(nameEnd + kCommentEnds.size());
        const std::string body = WithoutLines(text.substr(0, text.find(kPieceBegins)));
        std::vector<Part>& parts = pieces_[std::string(name)];
        for (std::size_t place = 0; place != std::string::npos;) {
            const std::size_t open = body.find("{{", place);
            const std::size_t close = open == std::string::npos ? open : body.find("}}", open);
            Part& part = parts.emplace_back();
            part.literal = body.substr(place, close == std::string::npos ? close : open - place);
            if (close != std::string::npos) part.hole = body.substr(open + 2, close - open - 2);
            place = close == std::string::npos ? close : close + 2;
        }
    }
}

const Pieces& Pieces::OfPage() {
    static const Pieces pieces(kPageTemplate);
    return pieces;
}

Markup Pieces::Make(std::string_view name, std::initializer_list<Filling> fillings) const {
    Markup markup;
    Add(markup, name, fillings);
    return markup;
}

void Pieces::Add(Markup& out, std::string_view name, std::initializer_list<Filling> fillings) const {
    const auto found = pieces_.find(name);
    if (found == pieces_.end()) throw std::logic_error("the page's template has no piece '" + std::string(name) + "'");
    for (const Part& part : found->second) {
        out.html_ += part.literal;
        if (part.hole.empty()) continue;
        const Filling* filling = nullptr;
        for (const Filling& each : fillings)
            if (each.Hole() == part.hole) filling = &each;
        if (filling == nullptr)
            throw std::logic_error("nothing fills the hole '" + part.hole + "' of the page's piece '" +
                                   std::string(name) + "'");
        filling->Append(out.html_);
    }
}

Markup Pieces::Style() {
    Markup markup;
    markup.html_ = kPageStyle;
    return markup;
}

Markup Pieces::Script() {
    Markup markup;
    markup.html_ = kPageScript;
    return markup;
}

}  // namespace orvale
