#pragma once

// How a format of the command's own is written: what each of them derives from.

#include <stdexcept>
#include <string>
#include <vector>

#include "command/formats/Profile.h"
#include "command/formats/RecordSource.h"

namespace orvale {

/// What the user may choose of how an output is written.
struct OutputOptions {
    bool withPasswords = false;
    std::string vcardVersion;  ///< of a vCard, "3.0" or "4.0"; empty where none was asked for
};

/// A file of one of the command's own formats, being written as a stream. A failure of the stream is the caller's to
/// look for.
class RecordSink {
 public:
    RecordSink() = default;
    RecordSink(const RecordSink&) = delete;
    RecordSink& operator=(const RecordSink&) = delete;
    virtual ~RecordSink() = default;

    /// Writes the next record. A sink has the functions of the kinds that its format may hold, and is never asked for
    /// another.
    virtual void Put(const CContactItem&) { throw std::logic_error("no sink of contacts"); }
    virtual void Put(const CCalendarItem&) { throw std::logic_error("no sink of calendar entries"); }
    virtual void Put(const CSMSItem&) { throw std::logic_error("no sink of messages"); }
    virtual void Put(const CEmailItem&) { throw std::logic_error("no sink of emails"); }

    /// Ends the file; it is whole only then.
    virtual void Finish() = 0;

    /// What was lost in writing that a reading back would not tell.
    virtual std::vector<Note> Losses() const { return {}; }

    /// What else the user should know of what was written, a line each.
    virtual std::vector<std::string> Remarks() const { return {}; }
};

}  // namespace orvale
