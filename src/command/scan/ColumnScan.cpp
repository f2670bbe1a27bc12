#include "command/scan/ColumnScan.h"

#include <algorithm>
#include <string_view>

#include "command/console/CommandError.h"
#include "command/scan/Finding.h"
#include "platform/CodePage.h"
#include "platform/File.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "records/CSVLine.h"

namespace orvale {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The lines of a file that its reader gets past.
class Lines {
 public:
    explicit Lines(const std::filesystem::path& path) {
        if (file_.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0)
            FailFile(path.string(), "", "can't be read");
    }

    bool Next(std::string_view& line) {
        return ReadLine(file_, kCSVLineBuffer, store_, line) == LineResult::kLine && line.size() < kCSVLineBuffer;
    }

 private:
    CFile file_;
    std::string store_;
};

std::vector<std::u16string> CutCaptions(std::u16string_view line) {
    std::vector<std::u16string> captions;
    for (std::u16string_view rest = Trim(line); !rest.empty();)
        captions.emplace_back(TakeCSVCaption(rest));
    return captions;
}

// The line end that stands alone inside of a line of captions, if there is one: it ends no line.
const char* LoneLineEnd(std::u16string_view line) {
    const std::size_t place = line.find_first_of(u"\r\n");
    if (place == std::u16string_view::npos) return nullptr;
    return line[place] == u'\n' ? "LF" : "CR";
}

class ColumnScanner {
 public:
    explicit ColumnScanner(const CCSVProfile& profile) : profile_(profile) {}

    void Line(std::string_view raw, std::size_t number) {
        const std::size_t replaced = converter_.Replaced();
        converter_.AssignWide(raw, wide_);
        badBytes_.Add(number, converter_.Replaced() - replaced);
        const std::size_t zero = raw.find('\0');
        cutValues_.Add(number, zero != std::string_view::npos && zero + 2 < raw.size() ? 1 : 0);
        if (number == 1 && raw.starts_with(kByteOrderMark)) mark_ = ToWide(kByteOrderMark);
        if (number == 1)
            TakeCaptions(Trim(wide_));
        else
            TakeRow(Trim(wide_), number);
    }

    std::vector<Note> Notes() const {
        std::vector<Note> notes;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            AddNote(notes, NameOf(i), columns_[i].values);
        AddNote(notes, "values behind the last column", surplus_);
        AddNote(notes, "values whose quotes don't close on their line, where they were cut off", openQuotes_);
        if (lineEnd_ != nullptr)
            AddNote(notes, std::string("lines behind the captions that end in ") + lineEnd_ + " alone and not in CR LF",
                    joinedLines_);
        AddNote(notes, "ends of values behind a zero byte", cutValues_);
        AddNote(notes, "bytes that code page " + std::to_string(ThreadCodePage().number) + " doesn't have", badBytes_);
        return notes;
    }

 private:
    struct Column {
        std::u16string caption;
        bool known;
        Finding values;  // of one that isn't known
    };

    // A caption of the profile ends at its first zero, and without a partner among the types it is none.
    bool Knows(std::u16string_view caption) const {
        const std::size_t count = std::min(profile_.captions.size(), profile_.typeIds.size());
        for (std::size_t i = 0; i < count; ++i) {
            const std::u16string_view each = profile_.captions[i];
            if (EqualsNoCase(each.substr(0, each.find(u'\0')), caption)) return profile_.typeIds[i] != UINT32_MAX;
        }
        return false;
    }

    void TakeCaptions(std::u16string_view line) {
        bool allKnown = true;
        for (std::u16string& caption : CutCaptions(line)) {
            const bool known = Knows(caption);
            allKnown = allKnown && known;
            columns_.push_back({std::move(caption), known, {}});
        }
        lineEnd_ = allKnown ? nullptr : LoneLineEnd(line);
        if (lineEnd_ != nullptr) {
            const char16_t end = *lineEnd_ == 'L' ? u'\n' : u'\r';
            joinedLines_.Add(2, static_cast<std::size_t>(std::count(line.begin(), line.end(), end)));
        }
    }

    void TakeRow(std::u16string_view line, std::size_t number) {
        for (std::size_t i = 0; !line.empty(); ++i) {
            bool neverCloses = false;
            const std::u16string_view value = Trim(UnquoteCSV(TakeCSVValue(line, joined_, &neverCloses), undoubled_));
            openQuotes_.Add(number, neverCloses ? 1 : 0);
            if (value.empty()) continue;
            if (i >= columns_.size())
                surplus_.Add(number);
            else if (!columns_[i].known)
                columns_[i].values.Add(number);
        }
    }

    std::string NameOf(std::size_t column) const {
        const std::u16string& caption = columns_[column].caption;
        if (caption.empty()) return "values of a column without a caption";
        const std::string name = "values of column '" + Quote(ToUtf8(caption)) + "', ";
        if (column == 0 && !mark_.empty() && caption.starts_with(mark_) &&
            Knows(Trim(std::u16string_view(caption).substr(mark_.size()))))
            return name + "which a byte order mark before its caption hides; take it out";
        return name + "which nobody knows; --profile can tell its type, see orvale help show";
    }

    const CCSVProfile& profile_;
    TextConverter converter_;
    std::u16string wide_;
    std::u16string joined_;
    std::u16string undoubled_;
    std::u16string mark_;  // a byte order mark, as the code page reads it
    std::vector<Column> columns_;
    const char* lineEnd_ = nullptr;
    Finding joinedLines_;
    Finding surplus_;
    Finding openQuotes_;
    Finding cutValues_;
    Finding badBytes_;
};

}  // namespace

std::vector<std::u16string> CaptionsOf(const std::filesystem::path& path) {
    Lines lines(path);
    std::string_view line;
    return lines.Next(line) ? CutCaptions(ToWide(line)) : std::vector<std::u16string>();
}

std::string WhyNoCaptions(const std::filesystem::path& path) {
    CFile file;
    std::string store;
    std::string_view raw;
    if (file.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0)
        FailFile(path.string(), "", "can't be read");
    const LineResult result = ReadLine(file, kCSVLineBuffer, store, raw);
    if (result == LineResult::kEnd) return "the file is empty";
    const std::u16string line = ToWide(raw);
    if (result == LineResult::kTooLong || raw.size() >= kCSVLineBuffer) {
        const char* const lineEnd = LoneLineEnd(line);
        return "the line of captions is longer than " + std::to_string(kCSVLineBuffer - 1) + " bytes" +
               (lineEnd == nullptr ? "" : std::string("; its lines end in ") + lineEnd + " alone and not in CR LF");
    }
    const std::vector<std::u16string> captions = CutCaptions(line);
    if (captions.empty()) return "its first line holds no captions";
    const auto isTooLong = [](const std::u16string& caption) { return caption.size() > kLongestCSVCaption; };
    const auto found = std::find_if(captions.begin(), captions.end(), isTooLong);
    if (found == captions.end()) return {};
    return "caption " + std::to_string(found - captions.begin() + 1) + " is longer than " +
           std::to_string(kLongestCSVCaption) + " characters";
}

std::vector<Note> ScanColumns(const std::filesystem::path& path, const CCSVProfile& columns, std::uint64_t end) {
    ColumnScanner scanner(columns);
    Lines lines(path);
    std::uint64_t offset = 0;
    std::string_view line;
    for (std::size_t number = 1; offset < end && lines.Next(line); ++number) {
        offset += line.size();
        scanner.Line(line, number);
    }
    return scanner.Notes();
}

}  // namespace orvale
