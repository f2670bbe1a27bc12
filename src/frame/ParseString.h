#pragma once

#include <string>
#include <string_view>

/// Cuts tokens off the front of a text. Empty tokens are tokens, the delimiter is a whole text and not a set of
/// characters, and what remains can be looked at any time.
class CParseString {
 public:
    CParseString() = default;
    virtual ~CParseString() = default;

    CParseString& operator=(std::u16string_view text);
    /// Of 8-bit text in the thread's code page.
    CParseString& operator=(std::string_view bytes);

    /// The text before the first `delimiter`, which goes too; all that remains where there is none. With an empty
    /// delimiter all that remains, and it stays.
    std::u16string GetNextToken(std::u16string_view delimiter);

    /// What remains. The view is good until the next token is cut or a text assigned.
    std::u16string_view Remaining() const { return std::u16string_view(text_).substr(start_); }
    bool IsEmpty() const { return start_ == text_.size(); }

 private:
    // The front isn't cut off but passed over, so that cutting up a text costs a straight line.
    std::u16string text_;
    std::size_t start_ = 0;
};
