#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Format.h"
#include "records/LogSwitch.h"

/// The diagnostic log: off unless the registry value for this very module switches it on. Its two globals are set at
/// load and only read after that; without the switch a line costs one test of a number. A line carries its own CR LF.
namespace orvale {

/// Reads the switch from the registry, once, at load. The module is looked up by its short name, to which a library
/// adds ".so". A failure leaves the switch at its default.
void LogInit(const std::u16string_view* moduleName, const std::int32_t* isLibrary, const std::uint32_t* defaultSwitch);

/// Whether the switch is on.
bool LogEnabled();

/// Writes a finished line. Never throws; what can't be written is dropped.
void LogText(std::u16string_view text) noexcept;

/// Formats and writes a line; the arguments aren't looked at while the log is off.
template <class... Arguments>
void LogFormat(std::u16string_view format, const Arguments&... arguments) noexcept {
    if (!LogEnabled()) return;
    try {
        LogText(Format(format, arguments...));
    } catch (...) {  // no memory: the line is dropped
    }
}

}  // namespace orvale
