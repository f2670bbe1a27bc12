#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace orvale {

/// When a listing is coloured.
enum class ColorMode { kAuto, kAlways, kNever };

/// Whether standard output gets colours: as told, else only on a terminal and without NO_COLOR in the environment.
bool UseColor(ColorMode mode);

/// Whether a character could steer a terminal: a control character of either set, a line or paragraph separator, or a
/// mark that turns the writing direction around.
bool SteersTerminal(char32_t character);

/// Whether a character takes no room on a terminal: joiners, a soft hyphen, a byte order mark.
bool IsInvisible(char32_t character);

/// Text as UTF-8 with what could steer a terminal made visible, as "^[" or "<U+202E>". A tab is a blank.
/// `all` does so with whatever is invisible: it joins the characters of names, but hides where a text is quoted.
std::string Visible(std::u16string_view text, bool all = false);

/// Where a listing goes: the styles of its parts, and lines that align.
class Screen {
 public:
    Screen(std::ostream& out, bool color) : out_(out), color_(color) {}

    enum class Style { kPlain, kTitle, kLabel, kQuiet };

    /// A piece of text without a line end.
    void Put(std::string_view text, Style style = Style::kPlain);
    void Put(std::u16string_view text, Style style = Style::kPlain) { Put(std::string_view(Visible(text)), style); }
    void EndLine() { out_ << '\n'; }

    /// A label, padded to a column, and a value; a value of several lines goes on in that column.
    void Row(std::string_view label, std::u16string_view value);

    /// The lines of a text, each after the first behind an indent, and the end of the last line.
    void PutBlock(std::u16string_view text, std::size_t indent, Style style = Style::kPlain);

    bool HasColor() const { return color_; }

    /// A text padded to a width on the terminal, or cut to it with an ellipsis: wide characters take two columns.
    static std::string Fit(std::u16string_view text, std::size_t width);

 private:
    std::ostream& out_;
    bool color_;
};

}  // namespace orvale
