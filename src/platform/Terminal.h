#pragma once

#include <cstddef>
#include <string_view>

namespace orvale {

/// The three standard streams.
enum class StandardStream : int { kInput = 0, kOutput = 1, kError = 2 };

bool IsTerminal(StandardStream stream);

/// How many columns a terminal gives to a character: 0 for one that combines, 2 for a wide one, by the platform's
/// tables, whatever the locale of the process. 1 for what the tables don't know.
int DisplayWidth(char32_t character);

/// The same for a text, character by character.
std::size_t DisplayWidth(std::u16string_view text);

/// The next character of a text, whose units are taken off its front; a half that stands alone is itself.
char32_t TakeCharacter(std::u16string_view& text);

}  // namespace orvale
