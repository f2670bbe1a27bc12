#pragma once

#include <string_view>

namespace orvale {

/// Sends bytes to standard error. A reader who is gone, or any other failure, costs no more than the bytes.
void WriteToErrors(std::string_view bytes) noexcept;

/// Sends a text to the debugger's output, which is standard error, as UTF-8. Never throws.
void WriteDebugOutput(std::u16string_view text) noexcept;

}  // namespace orvale
