#include "frame/UtcText.h"

#include "platform/CodePage.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {
namespace {

std::u16string UtcText(std::u16string_view format, const CalendarFields& f) {
    return Format(format, f.year, f.month, f.day, f.hour, f.minute, f.second);
}

int NumberAt(std::string_view text, std::size_t first, std::size_t count) {
    const std::string_view digits = first < text.size() ? text.substr(first, count) : std::string_view();
    return ToNumber(std::u16string(digits.begin(), digits.end()));
}

}  // namespace

std::u16string DateToUtcText(const DateValue& date) {
    if (date.IsNone()) return {};
    const std::optional<CalendarFields> local = date.Fields();
    if (!local) return UtcText(u"%04d%02d%02dT%02d%02d%02dZ", {-1, -1, -1, -1, -1, -1});
    if (const std::optional<CalendarFields> utc = LocalToUtc(*local))
        return UtcText(u"%4d%02d%02dT%02d%02d%02dZ", *utc);
    return UtcText(u"%04d%02d%02dT%02d%02d%02dZ", *local);
}

bool UtcTextToDate(std::u16string_view text, DateValue& date) {
    date = DateValue::Now();
    if (text.empty()) {
        date = DateValue();
        return true;
    }
    if (text.size() < 16) return false;
    const std::string narrow = ToNarrow(text);
    const std::size_t t = narrow.find('T');
    const std::string_view day = std::string_view(narrow).substr(0, 8);
    const std::string_view time = std::string_view(narrow).substr(t == std::string::npos ? 0 : t + 1, 6);
    const CalendarFields utc{NumberAt(day, 0, 4),  NumberAt(day, 4, 2),  NumberAt(day, 6, 2),
                             NumberAt(time, 0, 2), NumberAt(time, 2, 2), NumberAt(time, 4, 2)};
    date = DateValue::FromFields(utc);
    const std::optional<CalendarFields> local = UtcToLocal(utc);
    if (!local) return false;
    date = DateValue::FromFields(*local);
    return date.GetStatus() == DateValue::kValid;
}

std::u16string DateToLocaleText(const DateValue& date) {
    if (date.GetStatus() == DateValue::kNull) return {};
    return LocaleText(date).value_or(u"Invalid DateTime");
}

}  // namespace orvale
