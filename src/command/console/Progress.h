#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvale {

/// Tells on standard error how far work is that takes long, where that is a terminal: one line, drawn anew in its
/// place, which goes with the object and before any other line. Nothing is told of work that is soon done.
class Progress {
 public:
    /// What is being done, such as "writing", and to what.
    Progress(std::string_view doing, std::string_view file);
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// So many records are done, of so many if that is known.
    void Tick(std::size_t count, std::size_t total = 0) {
        constexpr std::size_t kEvery = 256;  // a look at the clock costs as much as a small record
        if (count % kEvery == 0) Look(count, total);
    }

    /// Takes the line off the terminal.
    static void Clear();

 private:
    using Clock = std::chrono::steady_clock;

    void Look(std::size_t count, std::size_t total);

    std::string what_;       // as it is shown
    Clock::time_point due_;  // when the line is drawn next; never, where there is no terminal
};

}  // namespace orvale
