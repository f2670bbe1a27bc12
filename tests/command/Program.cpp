#include "command/Program.h"

#include <sys/wait.h>

#include <cstdlib>

namespace orvale::test {

Outcome RunOrvale(const ScratchFolder& folder, const std::string& words, const std::string& before) {
    const std::string line = "cd '" + (folder / "").string() + "' && export LC_ALL=C.UTF-8 && unset ORVALE_CODEPAGE; " +
                             before + " '" ORVALE_COMMAND "' " + words + " >.output 2>.errors";
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Get(".output"), folder.Get(".errors")};
}

std::string Flat(std::string_view json) {
    std::string flat;
    bool inText = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        if (json[i] == '"' && (i == 0 || json[i - 1] != '\\')) inText = !inText;
        if (inText || json[i] > ' ') flat += json[i];
    }
    return flat;
}

}  // namespace orvale::test
