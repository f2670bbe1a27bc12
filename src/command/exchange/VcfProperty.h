#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "command/exchange/VcfTable.h"
#include "platform/CodePage.h"

namespace orvale {

enum class VcfEncoding { kPlain, kQuotedPrintable, kBase64 };

/// A line, taken apart; the views share its text. Names and values stand as the file has them.
struct VcfProperty {
    std::string_view name;         ///< without its group
    std::span<const VcfRow> rows;  ///< of the name; empty for one that a contact has no place for
    VcfKind kind;                  ///< of these, what the types tell
    std::uint32_t types = 0;
    VcfEncoding encoding = VcfEncoding::kPlain;
    std::string_view charset;
    std::string_view id;     ///< of our own parameter
    std::string_view label;  ///< of the parameter LABEL
    std::string_view value;
};

/// Takes a line apart. False for one without a colon.
bool ParseVcfProperty(std::string_view line, VcfProperty& property);

/// ParseVcfProperty for the lines of a file: what stands before the colons is of a few sorts, and one that was met is
/// not taken apart again.
class VcfHeads {
 public:
    bool Parse(std::string_view line, VcfProperty& property);

 private:
    struct Head {
        std::string text;
        VcfProperty property;  // its name shows the text
    };

    std::array<Head, 128> heads_;
};

/// Takes the marks of folds out of a line's text, but those that quoted-printable has at its "=". In 2.1 a fold stands
/// before a blank of the text, in the others it brings its own.
void UnfoldVcfLine(std::string& text, VcfVersion version);

/// Makes text of values: encodings, charsets, escapes. One for a file.
class VcfDecoder {
 public:
    /// `isUnicode`: the file itself is known to be Unicode, and CHARSET can only speak of quoted-printable and base64.
    explicit VcfDecoder(bool isUnicode) : isUnicode_(isUnicode) {}

    /// How the cards' text is escaped from now on.
    void SetVersion(VcfVersion version) { version_ = version; }

    /// The value in one piece. Line ends become CR LF.
    void Text(const VcfProperty& property, std::u16string& text);

    /// The value's parts, at least one and at most so many; the last takes all that remains. They are the caller's to
    /// take and good until the next call.
    std::span<std::u16string> Parts(const VcfProperty& property, char separator, std::size_t most);

    /// How many bytes were no text in their charset so far, and how many values had a charset that isn't known.
    std::size_t BadBytes() const { return badBytes_; }
    std::size_t UnknownCharsets() const { return unknownCharsets_; }

 private:
    std::string_view Bytes(const VcfProperty& property);
    const CodePage* PageOf(const VcfProperty& property);
    void Assign(std::string_view bytes, const CodePage* page, std::u16string& text);
    static bool HasEscapes(std::string_view bytes);
    void Unescape(std::u16string& text) const;

    bool isUnicode_;
    VcfVersion version_ = VcfVersion::k30;
    std::string bytes_;
    std::vector<std::size_t> plainSeparators_;  // places in bytes_ where quoted-printable hid a ";" or ","
    std::vector<std::u16string> parts_;
    std::map<std::int32_t, std::unique_ptr<TextConverter>> converters_;
    std::size_t badBytes_ = 0;
    std::size_t unknownCharsets_ = 0;
};

/// Text of a parameter, in which "^n", "^'" and "^^" stand for a line end, a quote and "^".
std::u16string DecodeVcfParameter(std::string_view value);

}  // namespace orvale
