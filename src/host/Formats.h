#pragma once

// The formats of the module: names, kinds, extensions, profiles, ends, and detection by content.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "frame/FileInterface.h"
#include "records/GeneralSyncData.h"

namespace orvale {

/// The four kinds of data.
enum class Kind { kContacts, kCalendar, kSms, kEmail };

/// The formats of the module; the values are the numbers by which it creates them.
enum class FileFormat : FileType {
    kQzs = 0,
    kSsy = 1,
    kCsv = 2,
    kVCard = 3,
    kSms = 4,
    kCal = 5,
    kVCalendar = 6,
    kPhonebookXml = 7,
    kCalendarXml = 8,
    kSmsXml = 9,
    kEmailXml = 10,
    kEml = 11,
};

/// How surely the content of a file tells its format.
enum class Likeness { kNone, kWeak, kSure };

/// How a reader's end shows whether the file is whole.
enum class EndRule {
    kBytesLeft,       ///< bytes behind the last whole record are a damaged one
    kWhiteSpaceLeft,  ///< the same, but white space does no harm
    kLastRecordSize,  ///< bytes left, and a last record that took other bytes than its values need: the reader of
                      ///< native SMS gives a cut record as if it were whole
    kOneRecord,       ///< one record is due and no end is judged
    kAskAgain,        ///< a broken record gives 0 as the end does, and behind the end it starts over: the first record
                      ///< again tells the end, another one that the zeros before it were broken ones
    kNone,            ///< there is no telling, or no cut that reads
};

/// The profile that a format's file objects take: none; CCSVProfile, without which a file of columns isn't read either;
/// or one of the four that a suite carries. kAny is for what takes each of them, which no format of the module does.
enum class ProfileShape { kNone, kColumns, kPhonebook, kCalendar, kSms, kEmail, kAny };

/// What a format is like.
struct FormatInfo {
    FileFormat format;
    std::string_view name;  ///< by which a person names it
    Kind kind;
    std::string_view extension;  ///< with its dot
    bool writes;                 ///< all are read
    EndRule endRule;
    ProfileShape profile;

    /// How surely a file that begins so is one of this format; `size` is that of the whole file.
    Likeness (*looksLike)(std::string_view head, std::uint64_t size);

    /// What the reader takes at most and the writer doesn't look at, in words; empty where there is no such limit.
    std::string_view limit = {};
};

/// Whether a format is one of the XML suites: these carry a profile and are parsed and saved as a whole.
constexpr bool IsSuite(ProfileShape profile) {
    return profile != ProfileShape::kNone && profile != ProfileShape::kColumns && profile != ProfileShape::kAny;
}

/// All formats, in the order of their numbers.
std::span<const FormatInfo> AllFormats();

/// The row of a format.
const FormatInfo& Info(FileFormat format);

/// The row of a name, or null.
const FormatInfo* FindFormat(std::string_view name);

/// The format that the file's content tells most surely, or null. A file that can't be read tells none.
const FormatInfo* DetectByContent(const std::filesystem::path& path);

/// The same of a file that begins so; `size` is that of the whole file.
const FormatInfo* DetectByContent(std::string_view head, std::uint64_t size);

/// The first bytes of a file, as many as detection looks at; none if it can't be read.
std::optional<std::string> ReadHead(const std::filesystem::path& path);

}  // namespace orvale
