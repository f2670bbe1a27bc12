#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "command/formats/FormatTable.h"
#include "support/Faults.h"
#include "support/ScratchFolder.h"

namespace orvale::test {

/// Runs the command as its main does, in a child process with a fault.
FaultRun RunCommandWith(const Fault& fault, const std::vector<std::string>& words,
                        const std::function<void()>& meanwhile = {});

/// Every file below a folder with its bytes, by its path in the folder.
using Files = std::map<std::string, std::string>;
Files FilesIn(const std::filesystem::path& folder);

/// Takes away what the command writes beside a target before it is whole; how many files and folders that were.
std::size_t TakeUnfinished(Files& files);

/// One use of the command on a folder of its own, and what comes of it if nothing goes wrong.
class Road {
 public:
    /// `words` stand behind "orvale", "@/" for the folder; `files` are in it before.
    Road(std::string name, std::vector<std::string> words, Files files);

    const std::string& Name() const { return name_; }
    std::string Path(const std::string& file) const { return (folder_ / file).string(); }
    const FaultRun& Clean() const { return clean_; }
    const Files& Before() const { return before_; }
    const Files& After() const { return after_; }

    /// Runs it with a fault, from the same start each time. Then Left() is what the folder holds.
    FaultRun Run(const Fault& fault, const std::function<void()>& meanwhile = {});
    const Files& Left() const { return left_; }

    /// Runs it once more, without a fault, on what the last run left.
    FaultRun RunAgain();

    /// Whether this end is one that is allowed: all as without a fault, or a failure that is told and left all as it
    /// was. Else what is wrong with it.
    std::string Judge(const Fault& fault, const FaultRun& run);

 private:
    void Restore();

    std::string name_;
    std::vector<std::string> words_;
    ScratchFolder folder_;
    Files before_;
    Files after_;
    Files left_;
    FaultRun clean_;
};

/// Reading, writing and writing with reading back, for every format of the command's table, from the project's samples.
std::vector<std::unique_ptr<Road>> AllRoads();

/// A sample of a format, by name and bytes.
std::pair<std::string, std::string> SampleOf(const FormatRow& format, std::optional<Kind> kind = std::nullopt);

}  // namespace orvale::test
