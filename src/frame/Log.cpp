#include "frame/Log.h"

#include <string>

#include "frame/LittleEndian.h"
#include "platform/DebugOutput.h"
#include "platform/File.h"
#include "platform/ModulePath.h"
#include "platform/Registry.h"
#include "platform/Text.h"

namespace orvale {
namespace {

std::uint32_t logSwitch = 0;

// Made when LogInit asks for it, which happens at load: a plain global could be built after that, empty again. Never
// destroyed: a host may release its file objects when statics are gone.
std::u16string& LogPath() {
    static auto& path = *new std::u16string;
    return path;
}

void AppendToLogFile(std::u16string_view text) {
    CFile file;
    if (file.Open(LogPath().c_str(), CFile::kModeCreate | CFile::kModeNoTruncate | CFile::kModeReadWrite, nullptr) == 0)
        return;
    const CFile::Gathering gathering(file);
    if (file.GetLength() == 0) WriteUnits(file, u"\xFEFF");
    file.Seek(0, CFile::kEnd);
    WriteUnits(file, text);
    file.Close();
}

}  // namespace

void LogInit(const std::u16string_view* moduleName, const std::int32_t* isLibrary, const std::uint32_t* defaultSwitch) {
    if (moduleName == nullptr || isLibrary == nullptr || defaultSwitch == nullptr) return;
    logSwitch = *defaultSwitch;
    try {
        const std::u16string shortName = *isLibrary != 0 ? Format(u"%s.so", *moduleName) : std::u16string(*moduleName);
        const std::u16string path = FromUtf8(ModulePath());
        if (path.empty() || path.substr(path.rfind(u'/') + 1) != shortName) return;
        const auto value = ReadRegistryNumber(kLogRegistryKey, path);
        if (!value) return;
        LogPath() = Trim(LogPathOf(path));
        logSwitch = *value;
    } catch (...) {  // a log that can't be set up is a log that is off
        logSwitch = *defaultSwitch;
    }
}

bool LogEnabled() {
    return logSwitch != 0;
}

void LogText(std::u16string_view text) noexcept {
    if (logSwitch == 0 || text.empty()) return;
    if ((logSwitch & kLogToDebugger) != 0) WriteDebugOutput(text);
    if ((logSwitch & kLogToFile) == 0) return;
    try {
        AppendToLogFile(text);
    } catch (...) {  // a failed log never disturbs the caller
    }
}

}  // namespace orvale
