#include "support/Child.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace orvale::test {

ChildResult InChild(const std::function<void()>& body) {
    int ends[2];
    if (pipe(ends) != 0) return {-1, "no pipe"};
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        close(ends[1]);
        try {
            body();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        std::fflush(stdout);
        EndChild(testing::Test::HasFailure() ? 1 : 0);
    }
    close(ends[1]);
    ChildResult result{-1, {}};
    char buffer[4096];
    for (ssize_t got; (got = read(ends[0], buffer, sizeof buffer)) > 0;)
        result.errors.append(buffer, static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) == child && WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    return result;
}

void EndChild(int code) {
#if defined(ORVALE_COVERAGE)
    std::exit(code);
#else
    _exit(code);
#endif
}

}  // namespace orvale::test
