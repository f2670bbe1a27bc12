#pragma once

#include <cstdint>
#include <string_view>

/// The switch of the diagnostic log, which the module reads from the registry and the command sets there.
namespace orvale {

/// The key of the value; the value's name is the module's full path, its data a number of four bytes.
inline constexpr std::u16string_view kLogRegistryKey = u"HKEY_CURRENT_USER\\SoftWare\\Tarnwick\\LogFiles";

inline constexpr std::uint32_t kLogToFile = 2;      ///< the file beside the module, its name ending in .log
inline constexpr std::uint32_t kLogToDebugger = 4;  ///< the debugger's output

}  // namespace orvale
