#pragma once

#include <string_view>

namespace orvale {

/// Sends a text to the debugger's output, which is standard error, as UTF-8. Never throws.
void WriteDebugOutput(std::u16string_view text) noexcept;

}  // namespace orvale
