#pragma once

// The page's template: pieces of markup with holes, and the escaping of what goes into them.

#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvale {

/// Text as HTML that is no markup wherever it stands: in the content of an element, or in an attribute between quotes.
/// What a page can't hold or show becomes visible: control characters by their pictures, a lone half by U+FFFD.
void AppendEscaped(std::string& out, std::u16string_view text);

/// A piece of the page: markup of our own, with texts in it escaped. Only Pieces makes one, so what a stranger wrote
/// can't become markup on the way.
class Markup {
 public:
    const std::string& Html() const { return html_; }
    bool empty() const { return html_.empty(); }
    Markup& operator+=(const Markup& more) {
        html_ += more.html_;
        return *this;
    }

 private:
    friend class Pieces;
    std::string html_;
};

/// What goes into a hole of a piece: a text, which is escaped, or a piece.
class Filling {
 public:
    Filling(std::string_view hole, const std::u16string& text) : hole_(hole), text_(text) {}
    Filling(std::string_view hole, std::u16string_view text) : hole_(hole), text_(text) {}
    Filling(std::string_view hole, const char16_t* text) : hole_(hole), text_(text) {}
    Filling(std::string_view hole, std::string_view words) : hole_(hole), ownText_(words.begin(), words.end()) {}
    Filling(std::string_view hole, const char* words) : Filling(hole, std::string_view(words)) {}
    Filling(std::string_view hole, std::size_t number) : Filling(hole, std::string_view(std::to_string(number))) {}
    Filling(std::string_view hole, const Markup& markup) : hole_(hole), markup_(&markup) {}

    std::string_view Hole() const { return hole_; }
    void Append(std::string& out) const;

 private:
    std::string_view hole_;
    std::u16string_view text_;
    std::u16string ownText_;  // of our own words
    const Markup* markup_ = nullptr;
};

/// The pieces of the page's template.
class Pieces {
 public:
    /// The template that the command was built with.
    static const Pieces& OfPage();

    explicit Pieces(std::string_view text);

    /// A piece with its holes filled. A hole that nothing fills is a fault of the program; a filling without a hole
    /// isn't: the template need not show everything.
    Markup Make(std::string_view name, std::initializer_list<Filling> fillings = {}) const;

    /// The same, behind `out`.
    void Add(Markup& out, std::string_view name, std::initializer_list<Filling> fillings = {}) const;

    /// The style or the script, which stand in the page as they are.
    static Markup Style();
    static Markup Script();

 private:
    // Literal text, and the hole behind it; the last part has none.
    struct Part {
        std::string literal;
        std::string hole;
    };
    std::map<std::string, std::vector<Part>, std::less<>> pieces_;
};

}  // namespace orvale
