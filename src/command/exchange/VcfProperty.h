#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "command/exchange/VcfTable.h"

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

}  // namespace orvale
