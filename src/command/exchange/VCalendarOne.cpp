#include "command/exchange/VCalendarOne.h"

#include <algorithm>
#include <optional>

#include "platform/CodePage.h"
#include "platform/Text.h"
#include "records/CalendarItem.h"
#include "records/QuotedPrintable.h"

namespace orvale {
namespace {

constexpr std::string_view kTexts[] = {"SUMMARY", "DESCRIPTION", "LOCATION", "CONTACT", "CATEGORIES"};
constexpr std::string_view kAlarms[] = {"AALARM", "DALARM", "PALARM", "MALARM"};

template <std::size_t kSize>
bool IsOneOf(const std::string_view (&names)[kSize], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

std::string InCapitals(std::string_view text) {
    std::string capitals(text);
    std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return capitals;
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        parts.emplace_back(text.substr(0, end));
        if (end == text.size()) return parts;
        text.remove_prefix(end + 1);
    }
}

bool IsHex(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

std::string FromQuotedPrintable(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '=' && i + 2 < text.size() && IsHex(text[i + 1]) && IsHex(text[i + 2])) {
            bytes += static_cast<char>(HexDigitValue(text[i + 1]) << 4 | HexDigitValue(text[i + 2]));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

// A text of iCalendar: of the characters that have a meaning there, all are marked.
std::string Escape(std::u16string_view text, bool isList) {
    std::string escaped;
    for (const char c : ToUtf8(text)) {
        if (c == '\r') continue;
        if (c == '\n') {
            escaped += "\\n";
            continue;
        }
        if (c == '\\' || (!isList && (c == ',' || c == ';'))) escaped += '\\';
        escaped += isList && c == ';' ? ',' : c;
    }
    return escaped;
}

std::string TextLine(const ContentLine& line) {
    bool isQuotedPrintable = false;
    const CodePage* page = &ThreadCodePage();
    for (const std::string& each : Split(line.parameters, ';')) {
        const std::string parameter = InCapitals(each);
        if (parameter.ends_with("QUOTED-PRINTABLE")) isQuotedPrintable = true;
        if (!parameter.starts_with("CHARSET=")) continue;
        if (const CodePage* const told = FindCodePageOfCodeset(each.substr(8))) page = told;
    }
    TextConverter converter(*page);
    std::u16string text =
        converter.ToWide(isQuotedPrintable ? FromQuotedPrintable(line.value) : std::string(line.value));
    const bool isList = line.name == "CATEGORIES";
    if (!isList) text = Replace(text, u"\\;", u";");
    return line.name + ":" + Escape(text, isList);
}

// "20080317T080000Z;..." of an alarm: the moment at which it is due.
std::vector<std::string> AlarmLines(const ContentLine& line) {
    const std::string moment = Split(line.value, ';').front();
    if (moment.empty()) return {};
    return {"BEGIN:VALARM", "TRIGGER;VALUE=DATE-TIME:" + moment, "END:VALARM"};
}

bool IsNumber(std::string_view text) {
    return !text.empty() && text.size() < 10 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsDate(std::string_view text) {
    return text.size() >= 8 && IsNumber(text.substr(0, 8)) && (text.size() == 8 || text[8] == 'T');
}

struct OldFrequency {
    std::string_view letters;
    const char* frequency;
    const char* list;  // the part that its numbers stand in
};

constexpr OldFrequency kFrequencies[] = {
    {"D", "DAILY", ""},          {"W", "WEEKLY", ""},           {"MP", "MONTHLY", ""}, {"MD", "MONTHLY", "BYMONTHDAY"},
    {"YM", "YEARLY", "BYMONTH"}, {"YD", "YEARLY", "BYYEARDAY"},
};

// "2+" and "1-", which count from the start or the end; "LD" is the last day.
std::optional<std::string> SignedNumber(const std::string& word) {
    if (word == "LD") return "-1";
    if (IsNumber(word)) return word;
    const std::string digits = word.substr(0, word.size() - 1);
    if (!IsNumber(digits) || (word.back() != '+' && word.back() != '-')) return std::nullopt;
    return (word.back() == '-' ? "-" : "") + digits;
}

// The rule that says the same as one of vCalendar, "MP1 2+ MO #6"; none for what iCalendar says by several rules.
std::optional<std::string> RuleLine(std::string_view value) {
    std::vector<std::string> words = Split(InCapitals(value), ' ');
    std::erase(words, "");
    if (words.empty()) return std::nullopt;
    const std::string head = words.front();
    const std::size_t digits = head.find_first_of("0123456789");
    const auto* const row = std::find_if(
        std::begin(kFrequencies), std::end(kFrequencies),
        [&](const OldFrequency& each) { return each.letters == head.substr(0, std::min(digits, head.size())); });
    if (row == std::end(kFrequencies) || digits == std::string::npos || !IsNumber(head.substr(digits)))
        return std::nullopt;
    std::string limit = ";COUNT=2";  // what a rule means that tells none
    std::string numbers;
    std::string days;
    std::string nth;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::string& word = words[i];
        constexpr std::string_view kDays[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
        if (word.starts_with('#') && IsNumber(word.substr(1))) {
            limit = word.find_first_not_of("#0") == std::string::npos ? "" : ";COUNT=" + word.substr(1);
        } else if (IsDate(word)) {
            limit = ";UNTIL=" + word;
        } else if (IsOneOf(kDays, word)) {
            days.append(days.empty() ? "" : ",").append(nth).append(word);
        } else if (const auto number = SignedNumber(word); number && row->letters == "MP") {
            nth = *number;
        } else if (number && *row->list != '\0') {
            numbers += (numbers.empty() ? "" : ",") + *number;
        } else {
            return std::nullopt;
        }
    }
    std::string rule = std::string("RRULE:FREQ=") + row->frequency + limit + ";INTERVAL=" + head.substr(digits);
    if (!days.empty()) rule += ";BYDAY=" + days;
    if (!numbers.empty()) rule += std::string(";") + row->list + "=" + numbers;
    return rule;
}

}  // namespace

std::vector<std::string> AsICalendar(const ContentLine& line) {
    if (IsOneOf(kTexts, line.name)) return {TextLine(line)};
    if (IsOneOf(kAlarms, line.name)) return AlarmLines(line);
    if (line.name == "RRULE") {
        const std::optional<std::string> rule = RuleLine(line.value);
        return rule ? std::vector<std::string>{*rule} : std::vector<std::string>{};
    }
    // Phones write their own number for the priority.
    if (line.name == "PRIORITY" && (line.value == "0" || line.value == "1" || line.value == "2"))
        return {"X-ORVALE-PRIORITY:" + std::string(line.value)};
    if (line.name == "STATUS") {
        const std::string word = InCapitals(line.value);
        return {"STATUS:" + (word == "NEEDS ACTION" ? "NEEDS-ACTION" : word)};
    }
    std::string plain = line.name;
    return {plain.append(":").append(line.value)};
}

}  // namespace orvale
