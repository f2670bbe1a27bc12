#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/ScratchFolder.h"

namespace orvale::test {

struct Outcome {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

/// Runs the real command through a shell in a folder. `words` is what a person types behind "orvale"; in the shell
/// words of `before`, the command's environment and limits can be set.
Outcome RunOrvale(const ScratchFolder& folder, const std::string& words, const std::string& before = "");

/// A JSON document without the white space between its values.
std::string Flat(std::string_view json);

}  // namespace orvale::test
