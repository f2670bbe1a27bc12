#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvale {

/// An 8-bit code page: a row of the table of those that are known. All of them hold ASCII at its own places.
struct CodePage {
    std::int32_t number;     ///< as Windows counts them, for instance 1252
    const char* iconvName;   ///< the name that iconv knows it by
    const char* localeName;  ///< what a locale calls it, where that is another name; else null

    /// Whether a byte opens a character of two bytes: in the pages 932, 936, 949 and 950 alone.
    bool IsLeadByte(unsigned char byte) const;

    /// Whether every well-formed text comes back from it as it was: of the Unicode page alone.
    bool HoldsAll() const { return number == 65001; }
};

/// The row of a number, or null.
const CodePage* FindCodePage(std::int32_t number);

/// The row of a locale's codeset, or null.
const CodePage* FindCodePageOfCodeset(std::string_view codeset);

/// The code page of 8-bit text: `ORVALE_CODEPAGE` in the environment (a number of the table) if that is set and known,
/// else the codeset of the thread's locale; the C locale and an unknown codeset mean UTF-8. Decided at the first call
/// and the same from then on; threads that race on the first call get the same page.
const CodePage& ThreadCodePage();

/// Converts between 16-bit and 8-bit text. Opening a conversion costs several times one that is kept open, so a file
/// object keeps one of these; it belongs to one thread at a time.
class TextConverter {
 public:
    explicit TextConverter(const CodePage& page = ThreadCodePage()) : page_(page) {}
    ~TextConverter();
    TextConverter(const TextConverter&) = delete;
    TextConverter& operator=(const TextConverter&) = delete;

    const CodePage& Page() const { return page_; }

    /// Both convert up to the first zero unit or byte. A character that the page lacks becomes "?"; a byte that is no
    /// character of the page becomes U+FFFD. Throws std::system_error where the system lacks the conversion.
    std::string ToNarrow(std::u16string_view text);
    std::u16string ToWide(std::string_view bytes);

    /// ToWide, in place of what `out` holds: for many texts in turn, which then cost no memory each.
    void AssignWide(std::string_view bytes, std::u16string& out);

    /// ToWide, into `out` from a place on: for many texts one behind the other. Gives the place behind it; what `out`
    /// holds from there on is no text, but room for the next one.
    std::size_t PutWide(std::string_view bytes, std::u16string& out, std::size_t place);

    /// How many "?" and U+FFFD were put in so far.
    std::size_t Replaced() const { return replaced_; }

 private:
    class Direction {
     public:
        ~Direction();
        void* Handle(const char* to, const char* from);

     private:
        void* handle_ = nullptr;
    };

    std::size_t PutWideBeyondAscii(std::string_view bytes, std::u16string& out, std::size_t place);

    const CodePage& page_;
    Direction narrow_;
    Direction wide_;
    std::size_t replaced_ = 0;
};

/// One conversion by the thread's code page, for where no converter is at hand.
std::string ToNarrow(std::u16string_view text);
std::u16string ToWide(std::string_view bytes);

}  // namespace orvale
