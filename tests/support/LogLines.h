#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

#include "frame/Log.h"
#include "support/Child.h"

namespace orvale::test {

/// What a body logs. Expectations in the body count.
inline std::string Logged(const std::function<void()>& body) {
    const ChildResult child = InChild([&] {
        const std::u16string_view noModule;
        const std::int32_t isLibrary = 1;
        const std::uint32_t debugger = kLogToDebugger;
        LogInit(&noModule, &isLibrary, &debugger);
        body();
    });
    EXPECT_EQ(child.exitCode, 0);
    return child.errors;
}

/// The same in short: "@" for `head` and "|" for a line's end.
inline std::string LogLines(std::string_view head, const std::function<void()>& body) {
    std::string log = Logged(body);
    for (const auto& [from, to] : {std::pair(head, "@"), std::pair(std::string_view("\r\n"), "|")})
        for (std::size_t at; (at = log.find(from)) != std::string::npos;)
            log.replace(at, from.size(), to);
    return log;
}

}  // namespace orvale::test
