#include "command/exchange/MboxFile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "command/console/CommandError.h"
#include "command/exchange/MboxMessage.h"
#include "command/formats/Kinds.h"
#include "host/Flatten.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kLongestLine = 1024 * 1024;
constexpr std::size_t kLargestHead = 256 * 1024;
constexpr std::size_t kLargestMessage = 16 * 1024 * 1024;

constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr std::string_view kBegin = "From ";

// Whether a line has to be told apart from one that begins a message: it gets one ">" more where it is written.
bool LooksLikeBegin(std::string_view line) {
    const std::size_t marks = std::min(line.find_first_not_of('>'), line.size());
    return line.substr(marks).starts_with(kBegin);
}

// The moment in a line "From zoe@example.com Mon Mar 17 06:02:11 2008", in UTC; 1970 stands for none.
DateValue ReceivedOf(const std::string& line) {
    std::size_t start = std::string::npos;
    for (const char* const day : kDays) {
        const std::size_t found = line.rfind(std::string(" ") + day + " ");
        if (found != std::string::npos && (start == std::string::npos || found > start)) start = found;
    }
    if (start == std::string::npos) return {};
    char month[4] = {};
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    char rest[32] = {};
    if (std::sscanf(line.c_str() + start + 5, "%3s %2d %2d:%2d:%2d %31[^\n]", month, &day, &hour, &minute, &second,
                    rest) != 6)
        return {};
    // Some programs put a zone's name before the year.
    const char* const lastWord = std::strrchr(rest, ' ');
    int year = 0;
    if (std::sscanf(lastWord != nullptr ? lastWord + 1 : rest, "%4d", &year) != 1) return {};
    const auto* const name = std::find_if(std::begin(kMonths), std::end(kMonths),
                                          [&](const char* each) { return std::strcmp(each, month) == 0; });
    const CalendarFields utc{year, static_cast<int>(name - std::begin(kMonths)) + 1, day, hour, minute, second};
    if (name == std::end(kMonths) || !IsValid(utc) || utc == CalendarFields{1970, 1, 1, 0, 0, 0}) return {};
    const auto local = UtcToLocal(utc);
    return local && local->year >= 100 ? DateValue::FromFields(*local) : DateValue();
}

std::string BeginLine(const CEmailItem& email) {
    const auto received = UtcOf(email.received);
    const CalendarFields utc = received.value_or(CalendarFields{1970, 1, 1, 0, 0, 0});
    // The sender's address: one word of what the email says.
    std::string sender;
    const std::string from = ToUtf8(email.from);
    const std::size_t at = from.find('@');
    const auto isPart = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
               (c != '\0' && std::strchr(".-_+", c) != nullptr);
    };
    if (at != std::string::npos) {
        std::size_t first = at;
        std::size_t end = at + 1;
        while (first > 0 && isPart(from[first - 1]))
            --first;
        while (end < from.size() && isPart(from[end]))
            ++end;
        if (first < at && end > at + 1 && end - first < 250) sender = from.substr(first, end - first);
    }
    char date[48];
    std::snprintf(date, sizeof date, "%s %s %2d %02d:%02d:%02d %04d", kDays[DayOfWeek(utc)], kMonths[utc.month - 1],
                  utc.day, utc.hour, utc.minute, utc.second, utc.year);
    return "From " + (sender.empty() ? std::string("MAILER-DAEMON") : sender) + " " + date + "\n";
}

// A mailbox begins with such a line, and a line of a message's head behind it.
bool ClaimsMbox(const std::filesystem::path&, std::string_view head, const FormatRow* found) {
    if (found != nullptr || !head.starts_with(kBegin)) return false;
    const std::size_t feed = head.find('\n');
    if (feed == std::string_view::npos || feed > 1000) return false;
    const std::string_view second = head.substr(feed + 1, head.find('\n', feed + 1) - feed - 1);
    const std::size_t colon = second.find(':');
    return colon != std::string_view::npos && colon != 0 && second.find(' ') > colon;
}

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
        if (!line.text.starts_with(kBegin)) FailFile(shownName, "", "doesn't begin with a line 'From '");
        from_ = line.text;
        fromLine_ = line.number;
        return;
    }
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
    while (lines_.Next(line)) {
        if (isAfterBlank && line.text.starts_with(kBegin)) {
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
    for (std::string_view rest = message; !rest.empty();) {
        const std::size_t end = rest.find('\n') + 1;
        if (LooksLikeBegin(rest.substr(0, end))) out_ << '>';
        out_ << rest.substr(0, end);
        rest.remove_prefix(end);
    }
    out_ << '\n';
}

std::vector<Note> MboxSink::Losses() const {
    if (replaced_ == 0) return {};
    return {{"halves of characters that a message can't tell", replaced_, ""}};
}

}  // namespace orvale
