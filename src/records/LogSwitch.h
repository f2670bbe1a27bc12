#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The switch of the diagnostic log, which the module reads from the registry and the command sets there.
namespace orvale {

/// The key of the value; the value's name is the module's full path, its data a number of four bytes.
inline constexpr std::u16string_view kLogRegistryKey = u"HKEY_CURRENT_USER\\SoftWare\\Tarnwick\\LogFiles";

/// The name of the module's file; under another one it keeps no log.
inline constexpr std::string_view kModuleFileName = "Orvale.so";

/// The log file of a module: beside it, with ".log" in place of what follows the last "." of the whole path.
inline std::u16string LogPathOf(std::u16string_view modulePath) {
    const std::size_t dot = modulePath.rfind(u'.');
    std::u16string path(modulePath.substr(0, dot));
    return dot != std::u16string_view::npos ? path + u".log" : path;
}

inline constexpr std::uint32_t kLogToFile = 2;      ///< the file beside the module, its name ending in .log
inline constexpr std::uint32_t kLogToDebugger = 4;  ///< the debugger's output

}  // namespace orvale
