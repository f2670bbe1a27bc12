#pragma once

// How a format of the command's own is read: what each of them derives from.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "command/formats/Profile.h"
#include "host/Formats.h"

namespace orvale {

/// Something of a file that has no place in a record, or something of a record that has none in a file.
struct Note {
    std::string what;        ///< in the plural, such as "bytes that are no UTF-8"
    std::size_t count = 0;   ///< how often it was met
    std::string firstPlace;  ///< in words, such as "line 12"
};

/// A file of one of the command's own formats, open and read as a stream. What can't be read ends the work with an
/// error line.
class RecordSource {
 public:
    RecordSource() = default;
    RecordSource(const RecordSource&) = delete;
    RecordSource& operator=(const RecordSource&) = delete;
    virtual ~RecordSource() = default;

    /// What the file holds.
    virtual Kind GetKind() const = 0;

    /// The profile that the file carries, or none.
    virtual SharedProfile GetProfile() const { return nullptr; }

    /// Fills a new record from the next one of the file; false at the end, which may be too early. A source has the
    /// function of its kind, and is never asked for another.
    virtual bool Next(CContactItem&) { throw std::logic_error("no source of contacts"); }
    virtual bool Next(CCalendarItem&) { throw std::logic_error("no source of calendar entries"); }
    virtual bool Next(CSMSItem&) { throw std::logic_error("no source of messages"); }
    virtual bool Next(CEmailItem&) { throw std::logic_error("no source of emails"); }

    /// Once Next gave false: where the last whole record ends, if the file is damaged behind it.
    virtual std::optional<std::uint64_t> BrokenAt() const { return std::nullopt; }

    /// Once Next gave false: what of the file found no place in a record.
    virtual std::vector<Note> Notes() const { return {}; }
};

}  // namespace orvale
