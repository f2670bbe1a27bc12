#pragma once

#include <initializer_list>
#include <string_view>

namespace orvale {

/// Sends parts of a text to standard error, at once if they are short. Takes no memory; a reader who is gone, or any
/// other failure, costs no more than the text.
void WriteToErrors(std::initializer_list<std::string_view> parts) noexcept;

/// Sends a text to the debugger's output, which is standard error, as UTF-8. Never throws.
void WriteDebugOutput(std::u16string_view text) noexcept;

}  // namespace orvale
