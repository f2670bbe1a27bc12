#include "platform/DateValue.h"

#include <langinfo.h>
#include <time.h>

#include <cmath>

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/KeptLocale.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr int kSecondsPerDay = 24 * 60 * 60;

// Days since 1 January 1970 of a civil date and back, for any year (Howard Hinnant's date algorithms).
constexpr std::int64_t DaysFromCivil(int year, int month, int day) {
    year -= month <= 2;
    const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
    const auto yearOfEra = static_cast<unsigned>(year - era * 400);
    const unsigned dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const unsigned dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

CalendarFields CivilFromDays(std::int64_t days) {
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const auto dayOfEra = static_cast<unsigned>(days - era * 146097);
    const unsigned yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const unsigned dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const unsigned shifted = (5 * dayOfYear + 2) / 153;
    const int month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    const int year = static_cast<int>(static_cast<std::int64_t>(yearOfEra) + era * 400) + (month <= 2);
    return {year, month, static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1), 0, 0, 0};
}

constexpr std::int64_t kDayZero = DaysFromCivil(1899, 12, 30);  // of an automation date

CalendarFields FromTm(const tm& parts) {
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

tm ToTm(const CalendarFields& fields) {
    tm parts{};
    parts.tm_year = fields.year - 1900;
    parts.tm_mon = fields.month - 1;
    parts.tm_mday = fields.day;
    parts.tm_hour = fields.hour;
    parts.tm_min = fields.minute;
    parts.tm_sec = fields.second;
    parts.tm_isdst = -1;
    return parts;
}

std::optional<CalendarFields> Local(time_t moment) {
    tm parts{};
    if (localtime_r(&moment, &parts) == nullptr) return std::nullopt;
    return FromTm(parts);
}

std::optional<CalendarFields> Utc(time_t moment) {
    tm parts{};
    if (gmtime_r(&moment, &parts) == nullptr) return std::nullopt;
    return FromTm(parts);
}

}  // namespace

bool IsValid(const CalendarFields& f) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (f.year < 1 || f.year > 9999 || f.month < 1 || f.month > 12) return false;
    const bool leap = f.year % 4 == 0 && (f.year % 100 != 0 || f.year % 400 == 0);
    const int days = kDays[f.month - 1] + (leap && f.month == 2);
    return f.day >= 1 && f.day <= days && f.hour >= 0 && f.hour < 24 && f.minute >= 0 && f.minute < 60 &&
           f.second >= 0 && f.second < 60;
}

int DayOfWeek(const CalendarFields& fields) {
    const std::int64_t days = DaysFromCivil(fields.year, fields.month, fields.day);  // 1 January 1970 was a Thursday
    return static_cast<int>(((days + 4) % 7 + 7) % 7);
}

std::optional<CalendarFields> LocalToUtc(const CalendarFields& local) {
    if (!IsValid(local)) return std::nullopt;
    tm parts = ToTm(local);
    parts.tm_wday = -1;  // mktime's only sure mark of success: -1 is also a moment of 1969
    const time_t moment = mktime(&parts);
    if (parts.tm_wday == -1) return std::nullopt;
    return Utc(moment);
}

std::optional<CalendarFields> UtcToLocal(const CalendarFields& utc) {
    if (!IsValid(utc)) return std::nullopt;
    tm parts = ToTm(utc);
    return Local(timegm(&parts));
}

CalendarFields LocalNow() {
    return Local(Now()).value_or(CalendarFields{1970, 1, 1, 0, 0, 0});
}
CalendarFields UtcNow() {
    return Utc(Now()).value_or(CalendarFields{1970, 1, 1, 0, 0, 0});
}

std::optional<std::u16string> LocaleText(const DateValue& date) {
    const std::optional<CalendarFields> fields = date.Fields();
    if (!fields) return std::nullopt;
    const bool noTime = fields->hour == 0 && fields->minute == 0 && fields->second == 0;
    const bool noDate = fields->year == 1899 && fields->month == 12 && fields->day == 30;
    const char* const format = noDate ? "%X" : noTime ? "%x" : "%x %X";
    tm parts = ToTm(*fields);
    parts.tm_wday = DayOfWeek(*fields);
    static const KeptLocale user(LC_TIME_MASK | LC_CTYPE_MASK, "");
    char text[256];
    const std::size_t size = user.Get() != nullptr ? strftime_l(text, sizeof text, format, &parts, user.Get())
                                                   : strftime(text, sizeof text, format, &parts);
    const CodePage* const page =
        user.Get() != nullptr ? FindCodePageOfCodeset(nl_langinfo_l(CODESET, user.Get())) : nullptr;
    return page != nullptr ? TextConverter(*page).ToWide({text, size}) : FromUtf8({text, size});
}

}  // namespace orvale

using orvale::CalendarFields;

DateValue DateValue::FromFields(const CalendarFields& fields) {
    if (!orvale::IsValid(fields) || fields.year < 100) return DateValue(0.0, kInvalid);
    const auto day =
        static_cast<double>(orvale::DaysFromCivil(fields.year, fields.month, fields.day) - orvale::kDayZero);
    const double time =
        static_cast<double>(fields.hour * 3600 + fields.minute * 60 + fields.second) / orvale::kSecondsPerDay;
    return DateValue(day >= 0 ? day + time : day - time);
}

DateValue DateValue::Now() {
    return FromFields(orvale::LocalNow());
}

std::optional<CalendarFields> DateValue::Fields() const {
    constexpr double kFirst = -657434;  // 1 January 100
    constexpr double kEnd = 2958466;    // 1 January 10000
    if (status_ != kValid || !(value_ > kFirst - 1 && value_ < kEnd)) return std::nullopt;
    auto days = static_cast<std::int64_t>(std::trunc(value_));
    std::int64_t seconds = std::llround(std::fabs(value_ - std::trunc(value_)) * orvale::kSecondsPerDay);
    if (seconds == orvale::kSecondsPerDay) {
        seconds = 0;
        ++days;
    }
    if (days < static_cast<std::int64_t>(kFirst) || days >= static_cast<std::int64_t>(kEnd)) return std::nullopt;
    CalendarFields fields = orvale::CivilFromDays(days + orvale::kDayZero);
    fields.hour = static_cast<int>(seconds / 3600);
    fields.minute = static_cast<int>(seconds / 60 % 60);
    fields.second = static_cast<int>(seconds % 60);
    return fields;
}

int DateValue::Part(int CalendarFields::*part) const {
    const std::optional<CalendarFields> fields = Fields();
    return fields ? (*fields).*part : -1;
}
