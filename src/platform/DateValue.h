#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvale {

/// A moment taken apart by the Gregorian calendar: month and day from 1, 24-hour clock.
struct CalendarFields {
    int year;
    int month;
    int day;
    int hour;
    int minute;
    int second;

    bool operator==(const CalendarFields&) const = default;
};

/// Whether the fields name a moment: a day that its month has, in a year from 1 to 9999, a time below 24:00:00.
bool IsValid(const CalendarFields& fields);

/// Day of the week of a date, 0 for Sunday.
int DayOfWeek(const CalendarFields& fields);

/// Local time to UTC and back in the process's time zone; none where the zone can't place the moment.
std::optional<CalendarFields> LocalToUtc(const CalendarFields& local);
std::optional<CalendarFields> UtcToLocal(const CalendarFields& utc);

/// The present moment by the clock, in local time and in UTC.
CalendarFields LocalNow();
CalendarFields UtcNow();

}  // namespace orvale

/// A moment of local time as an OLE automation date: days since midnight of 30 December 1899. The whole part is the day
/// and may be negative, the fraction is the time of day and counts forward: -1.25 is 06:00 on 29 December. 0.0 means no
/// date. Calendar fields exist for the years 100 to 9999, rounded to the nearest second. (Source: [MS-OAUT], type
/// DATE.)
class DateValue {
 public:
    enum Status : std::int32_t { kValid = 0, kInvalid = 1, kNull = 2 };

    DateValue() = default;
    explicit DateValue(double value, Status status = kValid) : value_(value), status_(status) {}

    /// The date of calendar fields; its status is kInvalid (and its value 0.0) where there is no such date.
    static DateValue FromFields(const orvale::CalendarFields& fields);

    /// The present local date and time.
    static DateValue Now();

    double Value() const { return value_; }
    std::int32_t GetStatus() const { return status_; }
    void SetStatus(Status status) { status_ = status; }

    /// Whether this is the "no date" of the formats: valid, and 0.0.
    bool IsNone() const { return status_ == kValid && value_ == 0.0; }

    /// The date taken apart; none if it isn't valid or lies outside the years 100 to 9999.
    std::optional<orvale::CalendarFields> Fields() const;

    /// One part each, or -1 where there are no parts.
    int Year() const { return Part(&orvale::CalendarFields::year); }
    int Month() const { return Part(&orvale::CalendarFields::month); }
    int Day() const { return Part(&orvale::CalendarFields::day); }
    int Hour() const { return Part(&orvale::CalendarFields::hour); }
    int Minute() const { return Part(&orvale::CalendarFields::minute); }
    int Second() const { return Part(&orvale::CalendarFields::second); }

 private:
    int Part(int orvale::CalendarFields::*part) const;

    double value_ = 0.0;
    std::int32_t status_ = kValid;
};

namespace orvale {

/// The date as the user's locale writes it: date and time, the date alone at midnight, the time alone on day 0.
/// None where the date has no parts.
std::optional<std::u16string> LocaleText(const DateValue& date);

}  // namespace orvale
