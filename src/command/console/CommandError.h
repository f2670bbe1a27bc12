#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace orvale {

/// How the command ends.
enum class ExitCode : int {
    kDone = 0,
    kFailed = 1,  ///< what depends on files: missing, not recognised, damaged, exists already
    kUsage = 2,   ///< the command line can't be acted on as written
    kLoss = 3,    ///< --strict, and something would be lost
};

/// A failure that ends the work. Its text is the one line that the user sees, but for the "orvale: " before it.
class CommandError : public std::runtime_error {
 public:
    CommandError(ExitCode code, const std::string& line) : std::runtime_error(line), code_(code) {}
    ExitCode Code() const { return code_; }

 private:
    ExitCode code_;
};

/// The one shape of an error line, "FILE: PLACE: REASON", without the parts that are empty. The file's name is made fit
/// for a terminal: names are chosen by strangers too.
std::string ErrorLine(std::string_view file, std::string_view place, std::string_view reason);

/// Fails with a line about a file.
[[noreturn]] void FailFile(std::string_view file, std::string_view place, std::string_view reason);

/// Fails with a line about the command line.
[[noreturn]] void FailUsage(std::string_view reason);

/// What the system says of an error, in words that fit an error line.
std::string SystemReason(const std::error_code& error);

/// A line on standard error that doesn't end the work.
void TellUser(std::string_view line);

/// What a file says, fit for an error line: at most 40 characters of it, those that a terminal doesn't show
/// made visible.
std::string Quote(std::string_view text);

}  // namespace orvale
