#pragma once

// `orvale info`.

#include <string>
#include <vector>

#include "command/console/CommandError.h"
#include "host/LoadedLibrary.h"

namespace orvale {

/// What a file is and in what state.
struct FileInfo {
    std::string file;
    std::string format;
    std::string kind;
    std::int32_t fileVersion = 0;
    std::int32_t verifyCode = 0;
    std::string verifyName;
    bool header = false;
    std::size_t records = 0;
    bool truncated = false;
};

/// Tells what each file is: format, kind, versions, verify code, number of records, and whether it is whole. One file
/// that fails doesn't end the run; the result is then kFailed.
ExitCode TellInfo(const LoadedLibrary& library, const std::vector<std::string>& files, const std::string& formatName,
                  bool json);

}  // namespace orvale
