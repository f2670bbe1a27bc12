#include "command/exchange/MboxFile.h"

#include <algorithm>
#include <cstdio>

#include "command/console/CommandError.h"
#include "command/exchange/Claims.h"
#include "command/exchange/MboxBegin.h"
#include "command/exchange/MboxMessage.h"
#include "command/formats/Kinds.h"
#include "host/Flatten.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kLongestLine = 1024 * 1024;
constexpr std::size_t kLargestHead = 256 * 1024;
constexpr std::size_t kLargestMessage = 16 * 1024 * 1024;

}  // namespace

constexpr OwnFormat kMboxFormat{
    [](const std::filesystem::path& path, const std::string& shownName) -> std::unique_ptr<RecordSource> {
        return std::make_unique<MboxSource>(path, shownName);
    },
    [](std::ostream& out, Kind, const SharedProfile&, const OutputOptions&) -> std::unique_ptr<RecordSink> {
        return std::make_unique<MboxSink>(out);
    },
    &ClaimsMbox,
};

MboxSource::MboxSource(const std::filesystem::path& path, const std::string& shownName)
    : lines_(path, shownName, kLongestLine) {
    LineInput::Line line;
    while (lines_.Next(line)) {
        if (line.text.empty()) continue;
        if (!line.text.starts_with(kMessageBegin)) FailFile(shownName, "", "doesn't begin with a line 'From '");
        from_ = line.text;
        fromLine_ = line.number;
        return;
    }
}

bool MboxSource::Take(LineInput::Line& line) {
    if (!std::exchange(hasNext_, false)) return lines_.Next(line);
    std::swap(line, next_);
    return true;
}

// Whether a line behind an empty one begins a message. Not every writer marks the lines of a text that look so.
bool MboxSource::BeginsMessage(const LineInput::Line& line) {
    if (!line.text.starts_with(kMessageBegin)) return false;
    if (IsBegin(line.text)) return true;
    hasNext_ = lines_.Next(next_);
    return hasNext_ && IsLineOfHead(next_.text);
}

void MboxSource::Gather(LineInput::Line& line, std::string& message, bool& inHead, std::size_t& headSize) {
    if (line.cut) notes_.Add("ends of lines of more than a mebibyte", line.number);
    if (LooksLikeBegin(line.text) && line.text.starts_with('>')) line.text.erase(0, 1);
    if (inHead) {
        inHead = !line.text.empty();
        headSize += line.text.size() + 1;
        if (inHead && headSize > kLargestHead) {
            if (headSize - line.text.size() - 1 <= kLargestHead)
                notes_.Add("ends of heads of more than 262144 bytes", line.number);
            return;
        }
    }
    if (message.size() > kLargestMessage) return;
    message.append(line.text).append("\n");
    if (message.size() > kLargestMessage) notes_.Add("ends of messages of more than 16 mebibytes", fromLine_);
}

bool MboxSource::Next(CEmailItem& email) {
    if (from_.empty()) return false;
    const std::string begin = std::exchange(from_, {});
    const std::size_t number = fromLine_;
    std::string message;
    bool inHead = true;
    bool isAfterBlank = false;
    std::size_t headSize = 0;
    LineInput::Line line;
    while (Take(line)) {
        if (isAfterBlank && BeginsMessage(line)) {
            from_ = line.text;
            fromLine_ = line.number;
            break;
        }
        isAfterBlank = line.text.empty();
        Gather(line, message, inHead, headSize);
    }
    // The blank line before the next message, or the end, is none of this one's.
    if (isAfterBlank && message.ends_with("\n\n") && !inHead) message.pop_back();
    ReadMessage(email, message, ReceivedOf(begin), number, notes_);
    return true;
}

// The identifier is the same for the same email in every file, so that a program that takes both can tell.
void MboxSink::Put(const CEmailItem& email) {
    Flatten(email, flat_);
    std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
    for (const char16_t unit : flat_) {
        hash = (hash ^ (unit & 0xFF)) * 0x100000001B3;
        hash = (hash ^ (unit >> 8)) * 0x100000001B3;
    }
    char identifier[48];
    std::snprintf(identifier, sizeof identifier, "%016llx.%zu@orvale", static_cast<unsigned long long>(hash), ++count_);
    const std::string begin = BeginLine(email);
    const std::string message = WriteMessage(email, ReceivedOf(begin), identifier, replaced_);
    out_ << begin;
    PutQuoted(message);
    out_ << '\n';
}

// A line that looks as if it began a message gets a mark, and so does one that has marks already.
void MboxSink::PutQuoted(std::string_view message) {
    std::size_t from = 0;
    for (std::size_t place = message.find(kMessageBegin); place != std::string_view::npos;
         place = message.find(kMessageBegin, place + 1)) {
        std::size_t start = place;
        while (start != 0 && message[start - 1] == '>')
            --start;
        if (start != 0 && message[start - 1] != '\n') continue;
        out_ << message.substr(from, start - from) << '>';
        from = start;
    }
    out_ << message.substr(from);
}

std::vector<Note> MboxSink::Losses() const {
    if (replaced_ == 0) return {};
    return {{"halves of characters that a message can't tell", replaced_, ""}};
}

}  // namespace orvale
