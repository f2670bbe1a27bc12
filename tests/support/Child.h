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

/// Ends a child process without what the parent has yet to do at its own end. Where coverage is counted, the counters
/// of the program and of what it loaded are written, which takes an ordinary exit.
[[noreturn]] void EndChild(int code);

}  // namespace orvale::test
