#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "command/exchange/VcfTable.h"

/// How a text stands in a value or a parameter of a vCard: what is escaped, what is left out, and the way back.
namespace orvale {

/// Whether a vCard leaves a character out: it can hold no control characters but the tab and line ends.
bool IsLeftOutOfVcf(char16_t unit);

// ---- values

/// Adds a text to a line, as 3.0 and 4.0 escape it. `separatorsToo`: also ";" and ",". `replaced` is raised by one for
/// each half of a character.
void AppendVcfText(std::string& line, std::u16string_view text, bool separatorsToo, std::size_t& replaced);

/// Whether a value holds what UnescapeVcfText looks for; most hold none.
bool HasVcfEscapes(std::string_view bytes);

/// The text of a value as a version escapes it. In 2.1 only separators are escaped, and a backslash before anything
/// else is itself. Line ends become CR LF.
void UnescapeVcfText(std::u16string& text, VcfVersion version);

// ---- parameters, in which "^n", "^'" and "^^" stand for a line end, a quote and "^" (RFC 6868)

/// Adds a text to a line as the value of a parameter, without the quotes around it.
void AppendVcfParameter(std::string& line, std::u16string_view text, std::size_t& replaced);

/// The text of a parameter.
std::u16string DecodeVcfParameter(std::string_view value);

}  // namespace orvale
