#pragma once

#include <string>
#include <string_view>

#include "platform/CodePage.h"

/// Quoted-printable as the text formats of the time use it: of vCard 2.1's encoding only what would break a line or a
/// list, with neither soft line breaks nor a limit on a line.
namespace orvale {

/// Escapes CR, LF, ";", "=" and both bytes of a double-byte character as "=XX" of the text's 8-bit form.
std::u16string EncodeQuotedPrintable(std::u16string_view text, TextConverter& converter);

/// Takes "==" as "=", then each "=" that is followed by two characters as one byte, whatever these are: what is no
/// hexadecimal digit counts as 0. A decoded zero byte ends the text.
std::u16string DecodeQuotedPrintable(std::u16string_view text, TextConverter& converter);

/// The bytes of the text that DecodeQuotedPrintable makes, before the code page takes them as characters.
std::string QuotedPrintableBytes(std::u16string_view text, TextConverter& converter);

/// Whether decoding could change a text; of most values it couldn't.
bool NeedsDecoding(std::u16string_view text, const TextConverter& converter);

/// The value of a hexadecimal digit; of anything else 0.
int HexDigitValue(char digit);

}  // namespace orvale
