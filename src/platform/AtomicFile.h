#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvale {

/// A file that comes into being whole or not at all. Bytes go to a new file beside the target; Commit syncs that and
/// renames it over the target, so that whoever looks at any moment, also after a crash, finds the old file or the new
/// one. Without a Commit the target stays as it was and nothing is left beside it; what a process left there that was
/// killed goes with a later one's work (see Unfinished.h).
///
/// Where the target is there already it must be writable; its mode stays, its owner where the system allows, and a link
/// is followed. A device is written to as it stands. What the system refuses is thrown as std::system_error.
class AtomicFile {
 public:
    explicit AtomicFile(const std::string& path);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    void Write(std::string_view bytes);
    /// What becomes of a target that is there by the time of the commit.
    enum class Existing { kReplaced, kKept };

    /// Puts the new file in its place. Fails with EEXIST where an existing target is to be kept.
    void Commit(Existing existing = Existing::kReplaced);

    /// Where the new file stands until Commit; empty for a device. Another writer may fill it, or replace it,
    /// under this name.
    const std::string& TemporaryPath() const { return temporary_; }

 private:
    void CreateBeside();
    void HandOver();
    void Close() noexcept;

    std::string target_;     // with links followed
    std::string temporary_;  // empty for a device, and after Commit
    std::string gathered_;
    int descriptor_ = -1;
};

/// Which file stands at a path: a Commit puts another one there, with another identity.
struct FileIdentity {
    std::uint64_t device;
    std::uint64_t number;
    bool isRegular;  ///< a device is written to as it stands, and keeps its identity

    bool operator==(const FileIdentity&) const = default;
};

/// The identity of the file that a path leads to, links followed; none where no file is to be seen.
std::optional<FileIdentity> IdentityOf(const std::string& path);

}  // namespace orvale
