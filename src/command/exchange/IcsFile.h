#pragma once

#include <ostream>
#include <string>
#include <unordered_map>

#include "command/exchange/CalendarZones.h"
#include "command/exchange/ContentLines.h"
#include "command/exchange/IcsEntry.h"
#include "command/exchange/NoteTally.h"
#include "command/formats/FormatTable.h"

namespace orvale {

/// An iCalendar file, read as a stream, one component in memory at a time; vCalendar 1.0 as well.
class IcsSource : public RecordSource {
 public:
    IcsSource(const std::filesystem::path& path, const std::string& shownName);

    Kind GetKind() const override { return Kind::kCalendar; }
    using RecordSource::Next;
    bool Next(CCalendarItem& item) override;
    std::optional<std::uint64_t> BrokenAt() const override { return brokenAt_; }
    std::vector<Note> Notes() const override { return notes_.List(); }

 private:
    // A component of which the lines are gathered.
    struct Open {
        std::string name;  // empty where none is open
        std::string text;
        std::size_t line = 0;
        bool tooLarge = false;
        std::size_t inner = 0;    // how many components are open within
        bool keepsInner = false;  // whether the outermost of them is gathered too
    };

    bool EndsRecord(const LineInput::Line& line, CCalendarItem& item);
    void Begin(const std::string& name, const LineInput::Line& line);
    bool End(const std::string& name, const LineInput::Line& line, CCalendarItem& item);
    void TakeProperty(const ContentLine& parts, const LineInput::Line& line);
    void Gather(std::string_view line);
    void Abandon(const char* what);
    bool Close(const LineInput::Line& line, CCalendarItem& item);

    ContentLines lines_;
    CalendarZones zones_;
    NoteTally notes_;
    Open open_;
    std::size_t passedOver_ = 0;  // how many components are open that hold no entry
    bool inCalendar_ = false;
    bool isOld_ = false;
    std::uint64_t wholeEnd_ = 0;
    std::optional<std::uint64_t> brokenAt_;
};

/// Writes an iCalendar file.
class IcsSink : public RecordSink {
 public:
    explicit IcsSink(std::ostream& out);

    using RecordSink::Put;
    void Put(const CCalendarItem& item) override;
    void Finish() override;
    std::vector<Note> Losses() const override;
    std::vector<std::string> Remarks() const override;

 private:
    std::string UidOf(const CCalendarItem& item);

    std::ostream& out_;
    std::string stamp_;
    std::u16string flat_;
    std::unordered_map<std::uint64_t, std::uint32_t> hashes_;  // how often each was met
    IcsWriterNotes notes_;
};

extern const OwnFormat kIcsFormat;

}  // namespace orvale
