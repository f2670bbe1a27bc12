#pragma once

#include <functional>
#include <string>

namespace orvale::test {

struct ChildResult {
    int exitCode;        ///< 0 if the body ran through and no expectation in it failed
    std::string errors;  ///< what it wrote to standard error
};

/// Runs a body in a child process: for what a process decides once, such as what a module does at load.
ChildResult InChild(const std::function<void()>& body);

}  // namespace orvale::test
