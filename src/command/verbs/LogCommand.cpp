#include "command/verbs/LogCommand.h"

#include <algorithm>
#include <iostream>
#include <iterator>

#include "platform/AtomicFile.h"
#include "platform/ModulePath.h"
#include "platform/Registry.h"
#include "platform/Text.h"
#include "records/LogSwitch.h"

namespace orvale {
namespace {

namespace fs = std::filesystem;

struct SwitchRow {
    std::string_view word;
    std::uint32_t number;
};

constexpr SwitchRow kSwitches[] = {
    {"off", 0},
    {"file", kLogToFile},
    {"debug", kLogToDebugger},
    {"both", kLogToFile | kLogToDebugger},
};

std::string WordOf(std::uint32_t number) {
    for (const SwitchRow& row : kSwitches)
        if (row.number == (number & (kLogToFile | kLogToDebugger))) return std::string(row.word);
    return "off";
}

bool CanWriteIn(const fs::path& folder) {
    try {
        const AtomicFile probe((folder / "probe").native());
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void Set(const fs::path& module, std::uint32_t number) {
    try {
        WriteRegistryNumber(kLogRegistryKey, FromUtf8(module.string()), number);
    } catch (const std::system_error& error) {
        FailFile(RegistryPath(), "", SystemReason(error.code()));
    }
}

}  // namespace

ExitCode LogCommand(const fs::path& named, const std::string& word) {
    const fs::path module = AbsolutePath(named);  // as the loader will have it
    const auto* const row = std::find_if(std::begin(kSwitches), std::end(kSwitches),
                                         [&](const SwitchRow& each) { return each.word == word; });
    if (!word.empty() && row == std::end(kSwitches))
        FailUsage("the log is off, file, debug or both, not '" + Quote(word) + "'");
    if (!fs::is_regular_file(module)) FailFile(module.string(), "", "is no file");
    if (RegistryPath().empty()) FailFile("registry", "", "neither ORVALE_REGISTRY nor a home folder tells its place");
    if (module.filename() != kModuleFileName)
        TellUser(ErrorLine(module.string(), "",
                           "only a module of the name " + std::string(kModuleFileName) + " keeps a log"));
    if (!word.empty()) Set(module, row->number);
    const std::uint32_t number = ReadRegistryNumber(kLogRegistryKey, FromUtf8(module.string())).value_or(0);
    std::cout << "log: " << WordOf(number) << '\n';
    std::cout << "module: " << module.string() << '\n';
    std::cout << "log file: " << ToUtf8(LogPathOf(FromUtf8(module.string()))) << '\n';
    std::cout << "registry: " << RegistryPath() << '\n';
    if ((number & kLogToFile) != 0 && !CanWriteIn(module.parent_path()))
        TellUser(
            ErrorLine(module.parent_path().string(), "", "can't be written: the log file will not come into being"));
    return ExitCode::kDone;
}

}  // namespace orvale
