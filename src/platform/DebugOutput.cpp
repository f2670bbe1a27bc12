#include "platform/DebugOutput.h"

#include <unistd.h>

#include <cerrno>

#include "platform/Text.h"

namespace orvale {

void WriteDebugOutput(std::u16string_view text) noexcept {
    try {
        const std::string bytes = ToUtf8(text);
        std::string_view rest = bytes;
        while (!rest.empty()) {
            const ssize_t written = ::write(STDERR_FILENO, rest.data(), rest.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return;
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
    } catch (...) {  // no memory: the text is dropped
    }
}

}  // namespace orvale
