#include "command/exchange/IcsFile.h"

#include <algorithm>
#include <cstdio>

#include "command/console/CommandError.h"
#include "command/exchange/Claims.h"
#include "command/exchange/Recurrences.h"
#include "command/exchange/VCalendarOne.h"
#include "command/formats/Kinds.h"
#include "command/scan/TextScan.h"
#include "host/Flatten.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kLargestComponent = 1024 * 1024;

// What every entry has and says nothing of it to a person.
constexpr std::string_view kQuiet[] = {"UID", "DTSTAMP", "CREATED", "LAST-MODIFIED", "DCREATED", "SEQUENCE", "TRANSP"};

constexpr std::string_view kQuietOfCalendar[] = {"PRODID", "CALSCALE", "METHOD"};

// What has words of its own.
struct Unheld {
    std::string_view name;
    const char* what;
};

constexpr Unheld kUnheld[] = {
    {"EXDATE", "exceptions of a recurrence"},
    {"EXRULE", "exceptions of a recurrence"},
    {"RDATE", "further dates of a recurrence"},
    {"RECURRENCE-ID", "changed dates of a recurrence, which stand beside it as entries"},
    {"ATTACH", "attachments"},
    {"ATTENDEE", "people who take part"},
    {"ORGANIZER", "people who take part"},
};

bool IsEntry(std::string_view name) {
    return name == "VEVENT" || name == "VTODO";
}

std::string_view TrimAscii(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kSpace);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::string InCapitals(std::string_view text) {
    std::string capitals(TrimAscii(text));
    std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return capitals;
}

// Whether a rule holds a number that no record could: the library would take another one for it.
bool HasHugeNumber(std::string_view rule) {
    const auto numberOf = [&](std::string_view key) {
        const std::size_t place = InCapitals(rule).find(key);
        if (place == std::string::npos) return 0LL;
        long long number = 0;
        for (std::size_t i = place + key.size(); i < rule.size() && rule[i] >= '0' && rule[i] <= '9'; ++i)
            number = std::min(number * 10 + (rule[i] - '0'), 1LL << 40);
        return number;
    };
    return numberOf("COUNT=") > INT32_MAX || numberOf("INTERVAL=") > INT16_MAX;
}

// Takes all time zones that a file defines, wherever they stand.
void AddAllZones(CalendarZones& zones, const std::filesystem::path& path, const std::string& shownName) {
    ContentLines lines(path, shownName, LineInput::Hold::kShared);
    LineInput::Line line;
    std::string text;
    while (lines.Next(line)) {
        const bool begins = InCapitals(std::string_view(line.text).substr(0, 64)) == "BEGIN:VTIMEZONE";
        if (begins) text.clear();
        if (!begins && text.empty()) continue;
        if (text.size() + line.text.size() <= kLargestComponent) text.append(line.text).append("\r\n");
        if (InCapitals(std::string_view(line.text).substr(0, 64)) != "END:VTIMEZONE") continue;
        zones.Add(text);
        text.clear();
    }
}

}  // namespace

constexpr OwnFormat kIcsFormat{
    [](const std::filesystem::path& path, const std::string& shownName) -> std::unique_ptr<RecordSource> {
        return std::make_unique<IcsSource>(path, shownName);
    },
    [](std::ostream& out, Kind, const SharedProfile&, const OutputOptions&) -> std::unique_ptr<RecordSink> {
        return std::make_unique<IcsSink>(out);
    },
    &ClaimsIcs,
};

IcsSource::IcsSource(const std::filesystem::path& path, const std::string& shownName) : lines_(path, shownName) {
    LineInput::Line first;
    if (!lines_.Next(first) || InCapitals(first.text) != "BEGIN:VCALENDAR")
        FailFile(shownName, "", "doesn't begin with BEGIN:VCALENDAR");
    inCalendar_ = true;
    zones_.lookAhead = [=, this] { AddAllZones(zones_, path, shownName); };
}

bool IcsSource::Next(CCalendarItem& item) {
    LineInput::Line line;
    while (lines_.Next(line)) {
        if (EndsRecord(line, item)) return true;
    }
    if (inCalendar_ || !open_.name.empty()) brokenAt_ = wholeEnd_;
    open_ = {};
    inCalendar_ = false;
    return false;
}

bool IcsSource::EndsRecord(const LineInput::Line& line, CCalendarItem& item) {
    const ContentLine parts = SplitContentLine(line.text);
    if (line.cut) {
        notes_.Add("lines of more than 262144 bytes", line.number);
    } else if (parts.name == "BEGIN") {
        Begin(InCapitals(parts.value), line);
    } else if (parts.name == "END") {
        return End(InCapitals(parts.value), line, item);
    } else if (!open_.name.empty() && (open_.inner == 0 || (open_.inner == 1 && open_.keepsInner))) {
        TakeProperty(parts, line);
    } else if (open_.name.empty() && passedOver_ == 0 && parts.name == "VERSION") {
        isOld_ = TrimAscii(parts.value) == "1.0";
        lines_.SetOld(isOld_);
    } else if (open_.name.empty() && passedOver_ == 0 &&
               std::find(std::begin(kQuietOfCalendar), std::end(kQuietOfCalendar), parts.name) ==
                   std::end(kQuietOfCalendar)) {
        notes_.Add(parts.name.empty() ? "lines that can't be read"
                                      : "lines of the calendar that belong to no entry: " + Quote(parts.name),
                   line.number);
    }
    return false;
}

void IcsSource::Begin(const std::string& name, const LineInput::Line& line) {
    const bool isZone = name == "VTIMEZONE";
    if (name == "VCALENDAR" || IsEntry(name) || isZone) {
        if (!open_.name.empty()) Abandon("entries without an end");
        passedOver_ = 0;
        if (name == "VCALENDAR") {
            inCalendar_ = true;
        } else {
            open_ = {name, "BEGIN:" + name + "\r\n", line.number, false, 0, false};
        }
    } else if (open_.name.empty()) {
        if (passedOver_++ == 0) notes_.Add("parts of the calendar that are no entry: " + Quote(name), line.number);
    } else if (++open_.inner == 1) {
        open_.keepsInner = name == "VALARM" || open_.name == "VTIMEZONE";
        if (open_.keepsInner)
            Gather(line.text);
        else
            notes_.Add("parts of an entry: " + Quote(name), line.number);
    }
}

bool IcsSource::End(const std::string& name, const LineInput::Line& line, CCalendarItem& item) {
    if (name == "VCALENDAR") {
        if (!open_.name.empty()) Abandon("entries without an end");
        inCalendar_ = isOld_ = false;
        passedOver_ = 0;
        lines_.SetOld(false);
        wholeEnd_ = line.end;
    } else if (!open_.name.empty() && open_.inner != 0) {
        if (--open_.inner == 0 && open_.keepsInner) Gather(line.text);
    } else if (!open_.name.empty() && name == open_.name) {
        return Close(line, item);
    } else if (passedOver_ != 0) {
        --passedOver_;
    }
    return false;
}

void IcsSource::TakeProperty(const ContentLine& parts, const LineInput::Line& line) {
    if (open_.name == "VTIMEZONE") return Gather(line.text);
    if (open_.inner != 0) {
        if (parts.name == "TRIGGER") Gather(line.text);
        return;
    }
    if (TrimAscii(parts.value).empty()) {
        if (parts.name.empty()) notes_.Add("lines that can't be read", line.number);
        return;
    }
    const std::vector<std::string> lines = isOld_ ? AsICalendar(parts) : std::vector<std::string>{line.text};
    if (lines.empty()) notes_.Add("lines that can't be read: " + Quote(parts.name), line.number);
    for (const std::string& each : lines) {
        const ContentLine last = lines.size() == 1 ? SplitContentLine(each) : ContentLine{};
        if (lines.size() != 1 || IsPropertyOfEntry(last.name)) {
            if (last.name == "RRULE" && HasHugeNumber(last.value))
                notes_.Add("recurrences with numbers beyond those of a phone", line.number);
            else
                Gather(each);
            continue;
        }
        if (std::find(std::begin(kQuiet), std::end(kQuiet), last.name) != std::end(kQuiet)) continue;
        const auto* const row = std::find_if(std::begin(kUnheld), std::end(kUnheld),
                                             [&](const Unheld& unheld) { return unheld.name == last.name; });
        notes_.Add(row != std::end(kUnheld) ? row->what : "lines of a kind that no phone knows: " + Quote(last.name),
                   line.number);
    }
}

void IcsSource::Gather(std::string_view line) {
    open_.tooLarge = open_.tooLarge || open_.text.size() + line.size() > kLargestComponent;
    if (!open_.tooLarge) open_.text.append(line).append("\r\n");
}

void IcsSource::Abandon(const char* what) {
    notes_.Add(what, open_.line);
    open_ = {};
}

bool IcsSource::Close(const LineInput::Line& line, CCalendarItem& item) {
    wholeEnd_ = line.end;
    if (open_.tooLarge) {
        Abandon("entries of more than a mebibyte");
        return false;
    }
    const Open done = std::move(open_);
    open_ = {};
    const std::string text = done.text + "END:" + done.name + "\r\n";
    if (done.name == "VTIMEZONE") {
        zones_.Add(text);
        return false;
    }
    if (!ReadEntry(item, text, done.line, zones_, notes_)) {
        notes_.Add("entries that can't be read", done.line);
        return false;
    }
    return true;
}

IcsSink::IcsSink(std::ostream& out) : out_(out), stamp_(DateTimeText(UtcNow()) + "Z") {
    out_ << "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Orvale//Orvale " ORVALE_VERSION "//EN\r\n";
}

// The same entry has the same UID in every file, so that a program that takes both finds it twice and not two of it.
// Entries of one file that say the same are told apart by a number.
std::string IcsSink::UidOf(const CCalendarItem& item) {
    Flatten(item, flat_);
    std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
    for (const char16_t unit : flat_) {
        hash = (hash ^ (unit & 0xFF)) * 0x100000001B3;
        hash = (hash ^ (unit >> 8)) * 0x100000001B3;
    }
    char text[48];
    std::snprintf(text, sizeof text, "%016llx-%u@orvale", static_cast<unsigned long long>(hash), ++hashes_[hash]);
    return text;
}

void IcsSink::Put(const CCalendarItem& item) {
    out_ << WriteEntry(item, UidOf(item), stamp_, notes_);
}

void IcsSink::Finish() {
    out_ << "END:VCALENDAR\r\n";
}

std::vector<Note> IcsSink::Losses() const {
    if (notes_.replaced == 0) return {};
    return {{"halves of characters that iCalendar can't tell", notes_.replaced, ""}};
}

std::vector<std::string> IcsSink::Remarks() const {
    if (notes_.rulelessCount == 0) return {};
    return {std::to_string(notes_.rulelessCount) +
            " recurrences are no rule of iCalendar; other programs show these entries once"};
}

}  // namespace orvale
