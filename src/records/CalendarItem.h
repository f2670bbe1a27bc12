#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/DateValue.h"
#include "records/LayoutVersion.h"
#include "records/ValueTables.h"

/// One typed text of a calendar item. Host and library share it by its layout. What no format reads is carried for the
/// host.
class CCalendarField {
 public:
    CCalendarField() = default;
    CCalendarField(const CCalendarField&) = default;
    CCalendarField& operator=(const CCalendarField&) = default;  ///< all but the version
    virtual ~CCalendarField() = default;

    /// Sets everything but the version to its value in a new field.
    void Clear() { *this = CCalendarField(); }

    orvale::LayoutVersion<100> version;
    std::u16string Data;    ///< the text
    std::int32_t Type = 0;  ///< CAL_FIELD_, or any other number
    std::int32_t firstNumber = -1;
    std::int32_t secondNumber = 0;  ///< stored by the native file alone
    std::int32_t thirdNumber = -1;
    std::int32_t fourthNumber = 0;
    std::u16string secondText;
};

/// One calendar entry, an event or a todo. Host and library share it by its layout. The numbers are the phone's own
/// view of the entry; the library carries them. A date of 0.0 is no date.
class CCalendarItem {
 public:
    CCalendarItem() = default;
    CCalendarItem(const CCalendarItem& other) : CCalendarItem() { *this = other; }
    /// A deep copy of all but the version. A null entry of the list is copied as one.
    CCalendarItem& operator=(const CCalendarItem& other);
    virtual ~CCalendarItem() = default;

    /// Sets everything but the version to its value in a new item; the category only where the version is 101.
    void Clear();
    void DeleteFields() { fields.clear(); }

    std::int32_t GetVersion() const { return version; }

    /// Whether the record has a category at all: one of layout 100 ends before it.
    bool HasCategory() const { return version >= 101; }

    orvale::LayoutVersion<101> version;
    std::vector<std::unique_ptr<CCalendarField>> fields;  ///< in order of adding; entries may be null
    std::int32_t itemType = -1;                           ///< PHONE_EVENT_TYPE or PHONE_TODO_TYPE; -1 until set
    std::int32_t operation = 0;                           ///< OPERATION_MODIFY where a reader could not convert a date
    std::u16string firstText;
    DateValue dtstart;
    DateValue dtend;
    DateValue thirdDate;
    DateValue fourthDate;
    std::int32_t firstNumber = -1;
    std::int32_t secondNumber = -1;
    std::int32_t ringid = 0;
    std::u16string ring;         ///< name of the ring tone
    std::int32_t vibration = 0;  ///< 0 or 1
    std::int32_t secret = 0;     ///< 0 or 1
    std::u16string secondText;
    std::int32_t duration = 0;
    std::int32_t recurtype = 0;      ///< RECURS_
    std::int32_t recurday = 0;       ///< day of the month
    std::int32_t recurmonth = 0;     ///< month of a yearly recurrence
    std::int32_t recurinstance = 0;  ///< 0 on a date, 1 on a weekday
    std::int32_t recurweekday = 0;
    std::int32_t recurweekmask = 0;  ///< CAL_SUNDAY to CAL_SATURDAY
    std::int32_t recurinterval = 1;
    std::int32_t recurrepeat = 0;  ///< how many times
    DateValue recurenddate;
    std::int32_t recurhasenddate = 0;  ///< whether recurenddate counts
    std::int32_t remindermin = 0;      ///< minutes of the alarm
    std::int32_t priority = 1;         ///< CAL_TASK_PRIORITY_
    std::int32_t complete = 0;         ///< 0 or 1
    std::int32_t reserve1 = 0;
    std::int32_t reserve2 = 0;
    std::int32_t category = 0;  ///< CATE_; look at HasCategory first

 private:
    void CopyValues(const CCalendarItem& other);
};

/// What a phone knows of events or of todos.
class CCalendarConfig {
 public:
    orvale::LayoutVersion<100> version;
    std::int32_t type = 0;  ///< PHONE_EVENT_TYPE or PHONE_TODO_TYPE: which of the two it describes
    std::int32_t reserved = 0;
    std::int32_t config = 0;  ///< CAL_PROP_
};

/// The capabilities of a phone's calendar.
class CCalendarConfigSet {
 public:
    CCalendarConfigSet() = default;
    CCalendarConfigSet(const CCalendarConfigSet& other) : CCalendarConfigSet() { *this = other; }
    /// A deep copy of all but the version; a null entry of the list is left out.
    CCalendarConfigSet& operator=(const CCalendarConfigSet& other);

    /// Sets everything but the version to its value in a new set.
    void Clear() { *this = CCalendarConfigSet(); }

    /// Appends a copy. 1, or 0 where there was no memory for it.
    std::int32_t AddConfig(const CCalendarConfig& config);

    orvale::LayoutVersion<100> version;
    std::int32_t number = 0;
    std::vector<std::unique_ptr<CCalendarConfig>> configs;  ///< one for each kind of item; entries may be null
    std::u16string firstText;
    std::u16string secondText;
    std::u16string thirdText;
    std::vector<std::u16string> texts;
    std::vector<std::uint32_t> numbers;
};

/// What a suite of calendar items tells of its phone.
class CCalendarProfile {
 public:
    std::u16string handset;  ///< the phone's identifier
    std::u16string dllname;  ///< file name of the phone's driver module, see DriverName
    CCalendarConfigSet configSet;
};
