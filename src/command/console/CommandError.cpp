#include "command/console/CommandError.h"

#include <iostream>

#include "command/console/Progress.h"
#include "command/console/Screen.h"
#include "platform/DebugOutput.h"
#include "platform/Text.h"

namespace orvale {

std::string ErrorLine(std::string_view file, std::string_view place, std::string_view reason) {
    std::string line = Visible(FromUtf8(file));
    for (const std::string_view part : {place, reason}) {
        if (part.empty()) continue;
        if (!line.empty()) line += ": ";
        line += part;
    }
    return line;
}

void FailFile(std::string_view file, std::string_view place, std::string_view reason) {
    throw CommandError(ExitCode::kFailed, ErrorLine(file, place, reason));
}

void FailUsage(std::string_view reason) {
    throw CommandError(ExitCode::kUsage, std::string(reason));
}

std::string SystemReason(const std::error_code& error) {
    if (error == std::errc::device_or_resource_busy) return "another program holds the file";
    if (error == std::errc::illegal_byte_sequence) return "its name isn't UTF-8";
    return error.message();
}

void TellUser(std::string_view line) {
    Progress::Clear();
    std::cout.flush();  // what was printed stands before what is told of it
    WriteToErrors({"orvale: ", line, "\n"});
}

std::string Quote(std::string_view text) {
    constexpr std::size_t kMost = 40;
    std::u16string units = FromUtf8(text);
    if (units.size() > kMost) units.replace(kMost - 1, std::u16string::npos, u"…");
    return Visible(units, true);
}

}  // namespace orvale
