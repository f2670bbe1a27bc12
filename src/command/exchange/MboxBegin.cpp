#include "command/exchange/MboxBegin.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <vector>

#include "command/exchange/MailNames.h"
#include "command/exchange/MboxMessage.h"
#include "platform/Text.h"

namespace orvale {
namespace {

using mail::kDays;
using mail::kMonths;

constexpr CalendarFields kNoDate{1970, 1, 1, 0, 0, 0};

// By which a line of a head is known behind a line "From " without a date; and the fronts of others.
constexpr std::string_view kHeads[] = {"from",         "to",
                                       "cc",           "bcc",
                                       "subject",      "date",
                                       "received",     "message-id",
                                       "mime-version", "return-path",
                                       "delivered-to", "envelope-to",
                                       "sender",       "reply-to",
                                       "in-reply-to",  "references",
                                       "status",       "organization",
                                       "errors-to",    "user-agent",
                                       "importance",   "priority",
                                       "precedence",   "newsgroups",
                                       "path",         "authentication-results"};
constexpr std::string_view kFronts[] = {"x-", "content-", "list-", "resent-", "dkim-", "arc-"};

std::vector<std::string_view> WordsOf(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    std::vector<std::string_view> words;
    while (true) {
        const std::size_t first = line.find_first_not_of(kBlanks);
        if (first == std::string_view::npos) return words;
        const std::size_t end = std::min(line.find_first_of(kBlanks, first), line.size());
        words.push_back(line.substr(first, end - first));
        line.remove_prefix(end);
    }
}

// Which of a list of names a word is, from 1; 0 for none of them.
template <std::size_t kSize>
int PlaceOf(std::string_view word, const char* const (&names)[kSize]) {
    const auto* const found = std::find(std::begin(names), std::end(names), word);
    return found != std::end(names) ? static_cast<int>(found - std::begin(names)) + 1 : 0;
}

std::optional<int> NumberOf(std::string_view digits) {
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && number >= 0 ? std::optional(number) : std::nullopt;
}

// "06:02:11" or "06:02".
bool TakeTime(std::string_view word, CalendarFields& fields) {
    if (word.size() != 5 && (word.size() != 8 || word[5] != ':')) return false;
    if (word[2] != ':') return false;
    const std::string_view seconds = word.size() == 8 ? word.substr(6) : "00";
    const auto hour = NumberOf(word.substr(0, 2));
    const auto minute = NumberOf(word.substr(3, 2));
    const auto second = NumberOf(seconds);
    if (!hour || !minute || !second) return false;
    fields.hour = *hour;
    fields.minute = *minute;
    fields.second = std::min(*second, 59);  // a leap second is the last one here
    return true;
}

// "+0100" in minutes.
std::optional<int> OffsetOf(std::string_view word) {
    if (word.size() != 5 || (word[0] != '+' && word[0] != '-')) return std::nullopt;
    const auto number = NumberOf(word.substr(1));
    if (!number || *number % 100 >= 60) return std::nullopt;
    return (*number / 100 * 60 + *number % 100) * (word[0] == '-' ? -1 : 1);
}

// The moment that stands behind a day's name, in UTC. The words come in several orders: "Mar 17 06:02:11 2008",
// "17 Mar 2008 06:02 +0100", "Mar 17 06:02:11 PST 2008". A zone's name says nothing here: the standard means UTC.
std::optional<CalendarFields> MomentIn(const std::vector<std::string_view>& words, std::size_t first) {
    constexpr std::size_t kMostWords = 6;
    CalendarFields fields{0, 0, 0, 0, 0, 0};
    bool hasTime = false;
    int offset = 0;
    for (std::size_t i = first; i < std::min(words.size(), first + kMostWords); ++i) {
        const std::string_view word = words[i];
        const auto number = NumberOf(word);
        if (const int month = PlaceOf(word, kMonths); month != 0)
            fields.month = month;
        else if (number && word.size() <= 2)
            fields.day = *number;
        else if (number && word.size() == 4)
            fields.year = *number;
        else if (TakeTime(word, fields))
            hasTime = true;
        else if (const auto told = OffsetOf(word))
            offset = *told;
    }
    if (!hasTime || !IsValid(fields)) return std::nullopt;
    constexpr int kFirstYear = 100;  // that a date reaches
    if (offset == 0 || fields.year < kFirstYear) return fields;
    constexpr double kMinutesOfDay = 24 * 60;
    return DateValue(DateValue::FromFields(fields).Value() - offset / kMinutesOfDay).Fields();
}

std::optional<CalendarFields> MomentOf(std::string_view line) {
    constexpr std::size_t kLongest = 1000;
    const std::vector<std::string_view> words = WordsOf(line.substr(0, kLongest));
    for (std::size_t i = words.size(); i-- > 1;) {
        std::string_view day = words[i];
        if (day.ends_with(',')) day.remove_suffix(1);
        if (PlaceOf(day, kDays) == 0) continue;
        if (const auto moment = MomentIn(words, i + 1)) return moment;
    }
    return std::nullopt;
}

bool IsPartOfAddress(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           (c != '\0' && std::strchr(".-_+", c) != nullptr);
}

// The address in what an email says of its sender; the word that mail programs write for none.
std::string AddressIn(const std::string& sender) {
    constexpr std::size_t kLongest = 250;
    constexpr const char* kNobody = "MAILER-DAEMON";
    const std::size_t at = sender.find('@');
    if (at == std::string::npos) return kNobody;
    std::size_t first = at;
    std::size_t end = at + 1;
    while (first > 0 && IsPartOfAddress(sender[first - 1]))
        --first;
    while (end < sender.size() && IsPartOfAddress(sender[end]))
        ++end;
    return first < at && end > at + 1 && end - first < kLongest ? sender.substr(first, end - first) : kNobody;
}

}  // namespace

bool LooksLikeBegin(std::string_view line) {
    if (line.empty() || (line.front() != '>' && line.front() != 'F')) return false;
    const std::size_t marks = std::min(line.find_first_not_of('>'), line.size());
    return line.substr(marks).starts_with(kMessageBegin);
}

bool IsBegin(std::string_view line) {
    return line.starts_with(kMessageBegin) && MomentOf(line).has_value();
}

bool IsLineOfHead(std::string_view line) {
    std::string name(line.substr(0, std::min(line.find(':'), line.size())));
    if (name.size() == line.size()) return false;
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    const bool hasFront = std::any_of(std::begin(kFronts), std::end(kFronts),
                                      [&](std::string_view front) { return name.starts_with(front); });
    return std::find(std::begin(kHeads), std::end(kHeads), name) != std::end(kHeads) ||
           (hasFront && name.find_first_of(" \t") == std::string::npos);
}

DateValue ReceivedOf(std::string_view line) {
    constexpr int kFirstYear = 100;  // of a date of the records
    const auto utc = MomentOf(line);
    if (!utc || *utc == kNoDate) return {};
    const auto local = UtcToLocal(*utc);
    return local && local->year >= kFirstYear ? DateValue::FromFields(*local) : DateValue();
}

std::string BeginLine(const CEmailItem& email) {
    const CalendarFields utc = UtcOf(email.received).value_or(kNoDate);
    char date[48];
    std::snprintf(date, sizeof date, "%s %s %2d %02d:%02d:%02d %04d", kDays[DayOfWeek(utc)], kMonths[utc.month - 1],
                  utc.day, utc.hour, utc.minute, utc.second, utc.year);
    return std::string(kMessageBegin) + AddressIn(ToUtf8(email.from)) + " " + date + "\n";
}

}  // namespace orvale
