#pragma once

#include <string>

namespace orvale {

/// How a program that opens a file did.
enum class Launch {
    kDone,     ///< it ended well, or is still at work
    kFailed,   ///< it ended with a failure
    kMissing,  ///< there is no such program
};

/// Has the desktop open a file with the program that the user chose for its kind. That program outlives this one, and
/// its words go nowhere.
Launch OpenOnDesktop(const std::string& path);

}  // namespace orvale
