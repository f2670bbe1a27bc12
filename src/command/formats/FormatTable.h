#pragma once

// What a format is to the command, the table of all, and which one a file is of.

#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "command/formats/Profile.h"
#include "command/formats/RecordSink.h"
#include "command/formats/RecordSource.h"
#include "host/Formats.h"

namespace orvale {

struct FormatRow;

/// How the command reads and writes a format of its own.
struct OwnFormat {
    /// Opens a file, which failures call by `shownName`; null for a format that is never read.
    std::unique_ptr<RecordSource> (*open)(const std::filesystem::path& path, const std::string& shownName);

    /// Begins a file of records of a kind; null for a format that is never written.
    std::unique_ptr<RecordSink> (*create)(std::ostream& out, Kind kind, const SharedProfile& profile,
                                          const OutputOptions& options);

    /// Whether a file that begins so is one of this format. `found` is the format of the module that its content
    /// tells, or null: a claim on top of one takes the file over.
    bool (*claims)(const std::filesystem::path& path, std::string_view head, const FormatRow* found);
};

/// A format as the command works with it: the module's twelve and the command's own.
struct FormatRow {
    std::string_view name;
    std::optional<Kind> kind = std::nullopt;  ///< none where a file of the format may hold any kind
    std::string_view extension;
    std::optional<FileFormat> type = std::nullopt;  ///< none for a format of the command's own
    bool writes = true;
    EndRule endRule = EndRule::kNone;
    ProfileShape profile = ProfileShape::kNone;  ///< what it takes; a file of columns is read by one as well
    const OwnFormat* own = nullptr;              ///< null for one of the module's
    std::string_view limit = {};  ///< what its reader takes at most and its writer doesn't look at; may be empty
    std::string_view lacks = {};  ///< the library that it needs and this build goes without; empty if it has all

    bool Reads() const { return own == nullptr || own->open != nullptr; }

    bool Takes(ProfileShape shape) const { return profile == ProfileShape::kAny || profile == shape; }
};

/// Why a format isn't read, or isn't written, in words of an error line.
std::string WhyNotRead(const FormatRow& format);
std::string WhyNotWritten(const FormatRow& format);

inline bool IsSuite(const FormatRow& format) {
    return format.type && IsSuite(format.profile);
}

/// The command's one table of formats.
std::span<const FormatRow> FormatTable();

/// The row of a name. Ends the work with a usage error that names what is near, if there is no such format.
const FormatRow& FormatOfName(std::string_view name);

/// The format of a file that is there: by its content, then by its extension; null if neither tells. Ends the work
/// where the file can't be read.
const FormatRow* DetectFormat(const std::filesystem::path& path);

/// The format of the files in a folder that stands for them: the one whose files hold one record each.
const FormatRow* FormatOfFolders();

/// The format that an extension tells; null if it tells none. Where several formats have it, the one of the kind, and
/// none of them if no kind is given and they are of several.
const FormatRow* FormatOfExtension(const std::filesystem::path& path, std::optional<Kind> kind);

/// Whether some format has the extension of a path.
bool IsKnownExtension(const std::filesystem::path& path);

/// The name of a verify code.
std::string VerifyName(std::int32_t code);

/// The word of a kind in JSON.
std::string_view KindWord(Kind kind);

/// What one record of a kind is called, and several.
std::string_view RecordWord(Kind kind, bool several = false);

}  // namespace orvale
