#include "command/scan/TextScan.h"

#include <fstream>
#include <map>
#include <string>

#include "command/console/CommandError.h"
#include "command/scan/Finding.h"
#include "platform/CodePage.h"
#include "platform/File.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "records/QuotedPrintable.h"
#include "records/SSYRecord.h"
#include "records/VCalendarKeys.h"
#include "records/VCardKeys.h"

namespace orvale {
namespace {

constexpr std::size_t kLongestLine = 2048;  // the reader doesn't get past a longer one

// A file whose reader had no trouble with it. What can't be read now would go untold: it ends the work.
std::ifstream OpenToScan(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) FailFile(path.string(), "", "can't be read");
    return in;
}

void RequireReadToTheEnd(const std::ifstream& in, const std::filesystem::path& path) {
    if (in.bad()) FailFile(path.string(), "", "can't be read");
}

struct TextScan {
    Finding joinedLines;        // lines of cards whose key no row of the table holds: they join the value before them
    Finding droppedLines;       // the same before a card's first value, and lines that continue an ignored one: dropped
    Finding skippedLines;       // lines outside of cards, and of cards of another version: passed over
    Finding cutValues;          // values that a zero byte cuts off
    Finding furtherEntries;     // entries of a vCalendar behind its first: they all make one
    Finding badBytes;           // bytes that are no character of the code page, also those that quoted-printable tells
    Finding droppedItems;       // items of a record that no field takes
    Finding replacedValues;     // values in whose place a later one of their type came
    const char* unit = "line";  // what the first place of a finding counts

    std::vector<Note> Notes() const {
        std::vector<Note> notes;
        const auto add = [&](std::string what, const Finding& finding) {
            AddNote(notes, std::move(what), finding, unit);
        };
        add("lines with an unknown key, which joined the value before them", joinedLines);
        add("lines that belong to no value, which were dropped", droppedLines);
        add("lines outside of cards of version 2.1", skippedLines);
        add("entries behind the first, which became one with it", furtherEntries);
        add("ends of values behind a zero byte", cutValues);
        add("items that no field takes", droppedItems);
        add("values replaced by a later one of their type", replacedValues);
        add("bytes that code page " + std::to_string(ThreadCodePage().number) + " doesn't have", badBytes);
        return notes;
    }
};

class Scanner {
 public:
    TextScan scan;

    void Line(std::string_view raw, std::size_t number) {
        const std::size_t zero = raw.find('\0');
        const std::size_t replaced = converter_.Replaced();
        converter_.AssignWide(raw, wide_);
        const std::size_t bad = converter_.Replaced() - replaced;
        const std::u16string_view line = Trim(wide_);
        switch (place_) {
            case Place::kOutside:
                if (EqualsNoCase(line, u"BEGIN:VCARD"))
                    place_ = Place::kBeforeVersion;
                else if (!line.empty())
                    scan.skippedLines.Add(number);
                return;
            case Place::kBeforeVersion:
                if (EqualsNoCase(line, u"VERSION:2.1"))
                    place_ = Place::kInCard;
                else if (!line.empty())
                    scan.skippedLines.Add(number);
                hasValue_ = false;
                return;
            case Place::kInCard:
                break;
        }
        scan.badBytes.Add(number, bad);
        scan.cutValues.Add(number, zero != std::string_view::npos && zero + 2 < raw.size() ? 1 : 0);
        if (EqualsNoCase(line, u"END:VCARD")) {
            EndLogicalLine();
            place_ = Place::kOutside;
        } else if (FindUnit(line, u':') == std::u16string_view::npos && parts_ != 0) {
            logical_ += line;  // it continues the line before it
            parts_ += !line.empty();
        } else {
            EndLogicalLine();
            logical_ = line;
            parts_ = 1;
            firstPart_ = number;
        }
    }

 private:
    enum class Place { kOutside, kBeforeVersion, kInCard };

    void EndLogicalLine() {
        const std::u16string_view line = logical_;
        const std::size_t colon = FindUnit(line, u':');
        const std::u16string_view key = Trim(line.substr(0, colon));
        const std::int32_t id = key.empty() ? PROPERTY_UNKNOWN : GetPropertyId(key);
        if (id == PROPERTY_UNKNOWN) {
            (hasValue_ ? scan.joinedLines : scan.droppedLines).Add(firstPart_, line.empty() ? 0 : parts_);
        } else if (id == PROPERTY_IGNORED) {
            scan.droppedLines.Add(firstPart_ + 1, parts_ - 1);
        } else {
            hasValue_ = hasValue_ || colon + 1 < line.size();
        }
        // The reader decodes every value, and of a line that joined one all of it.
        if (id != PROPERTY_UNKNOWN && id != PROPERTY_IGNORED)
            Decode(line.substr(colon + 1));
        else if (id == PROPERTY_UNKNOWN && hasValue_)
            Decode(line);
        logical_.clear();
        parts_ = 0;
    }

    void Decode(std::u16string_view value) {
        if (FindUnit(value, u'=') == std::u16string_view::npos) return;
        const std::string bytes = QuotedPrintableBytes(value, converter_);
        const std::size_t replaced = converter_.Replaced();
        converter_.ToWide(bytes);
        // What the raw bytes lacked was counted with their line, and stands as U+FFFD here.
        scan.badBytes.Add(firstPart_, converter_.Replaced() - replaced);
        scan.cutValues.Add(firstPart_, bytes.find('\0') != std::string::npos ? 1 : 0);
    }

    TextConverter converter_;
    std::u16string wide_;
    Place place_ = Place::kOutside;
    bool hasValue_ = false;
    std::u16string logical_;
    std::size_t parts_ = 0;  // how many lines of the file it is of
    std::size_t firstPart_ = 0;
};

TextScan ScanVCard(const std::filesystem::path& path, std::uint64_t end) {
    Scanner scanner;
    CFile in;
    if (in.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0)
        FailFile(path.string(), "", "can't be read");
    std::string store;
    std::string_view raw;
    std::uint64_t offset = 0;
    for (std::size_t number = 1; offset < end && ReadLine(in, kLongestLine, store, raw) == LineResult::kLine;
         ++number) {
        offset += raw.size();
        scanner.Line(raw, number);
    }
    return scanner.scan;
}

// The reader takes the whole file.
TextScan ScanVCalendar(const std::filesystem::path& path, std::uint64_t) {
    TextScan scan;
    std::ifstream in = OpenToScan(path);
    TextConverter converter;
    std::string raw;
    std::size_t entries = 0;
    bool hasValue = false;
    bool continues = false;  // the line before ended in a soft line break
    for (std::size_t number = 1; std::getline(in, raw); ++number) {
        const std::size_t replaced = converter.Replaced();
        const std::u16string wide = converter.ToWide(raw);
        scan.badBytes.Add(number, converter.Replaced() - replaced);
        if (raw.find('\0') != std::string::npos) {  // a zero ends the text of the file
            scan.cutValues.Add(number);
            return scan;
        }
        const std::u16string_view line = Trim(wide);
        const std::size_t colon = line.find(u':');
        const std::int32_t id =
            colon != std::u16string_view::npos ? GetVCalendarPropertyId(Trim(line.substr(0, colon))) : PROPERTY_UNKNOWN;
        const bool isHead = number <= 3 && (line.starts_with(u"PRODID:") || EqualsNoCase(line, u"VERSION:1.0"));
        const bool opens = id == kVCalendarBegin && !EqualsNoCase(line, u"BEGIN:VCALENDAR");
        scan.furtherEntries.Add(number, opens && ++entries > 1 ? 1 : 0);
        if (id != PROPERTY_UNKNOWN)
            hasValue = hasValue || number > 1;
        else if (!line.empty() && !isHead && !continues)
            (hasValue ? scan.joinedLines : scan.droppedLines).Add(number);
        continues = line.ends_with(u'=');
    }
    RequireReadToTheEnd(in, path);
    return scan;
}

TextScan ScanSsy(const std::filesystem::path& path, std::uint64_t end) {
    constexpr std::size_t kHeaderSize = 54;
    TextScan scan;
    scan.unit = "record";
    std::ifstream in = OpenToScan(path);
    in.seekg(kHeaderSize);
    TextConverter converter;
    std::string raw;
    std::uint64_t offset = kHeaderSize;
    for (std::size_t number = 1; offset < end && std::getline(in, raw, '\0'); ++number) {
        offset += raw.size() + 1;
        const std::size_t replaced = converter.Replaced();
        const std::u16string record = converter.ToWide(raw);
        scan.badBytes.Add(number, converter.Replaced() - replaced);
        std::map<std::int32_t, std::u16string> values;
        CutSSYRecord(
            record,
            [&](std::int32_t type, std::u16string value) {
                std::u16string& last = values[type];
                scan.replacedValues.Add(number, !last.empty() && last != value ? 1 : 0);
                last = std::move(value);
            },
            [&](const std::u16string&) { scan.droppedItems.Add(number); });
    }
    RequireReadToTheEnd(in, path);
    return scan;
}

// A format whose reader leaves something out, or puts something else in its place, has its row.
constexpr struct {
    FileFormat format;
    TextScan (*scan)(const std::filesystem::path& path, std::uint64_t end);
} kScans[] = {
    {FileFormat::kSsy, &ScanSsy},
    {FileFormat::kVCard, &ScanVCard},
    {FileFormat::kVCalendar, &ScanVCalendar},
};

}  // namespace

std::vector<Note> ScanText(const FormatRow& format, const std::filesystem::path& path, std::uint64_t end) {
    for (const auto& row : kScans)
        if (row.format == format.type) return row.scan(path, end).Notes();
    return {};
}

bool VCalendarReaderTakesAll(const std::filesystem::path& path) {
    const TextScan scan = ScanVCalendar(path, UINT64_MAX);
    return scan.joinedLines.count == 0 && scan.droppedLines.count == 0 && scan.furtherEntries.count == 0;
}

}  // namespace orvale
