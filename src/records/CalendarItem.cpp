#include "records/CalendarItem.h"

#include <new>

CCalendarItem& CCalendarItem::operator=(const CCalendarItem& other) {
    if (this == &other) return *this;
    DeleteFields();
    CopyValues(other);
    category = other.version == 101 ? other.category : 0;
    fields.reserve(other.fields.size());
    for (const auto& field : other.fields)
        fields.push_back(field ? std::make_unique<CCalendarField>(*field) : nullptr);
    return *this;
}

void CCalendarItem::Clear() {
    DeleteFields();
    CopyValues(CCalendarItem());
    if (version == 101) category = 0;
}

// All but the version, the fields and the category, which have rules of their own.
void CCalendarItem::CopyValues(const CCalendarItem& other) {
    itemType = other.itemType;
    operation = other.operation;
    firstText = other.firstText;
    dtstart = other.dtstart;
    dtend = other.dtend;
    thirdDate = other.thirdDate;
    fourthDate = other.fourthDate;
    firstNumber = other.firstNumber;
    secondNumber = other.secondNumber;
    ringid = other.ringid;
    ring = other.ring;
    vibration = other.vibration;
    secret = other.secret;
    secondText = other.secondText;
    duration = other.duration;
    recurtype = other.recurtype;
    recurday = other.recurday;
    recurmonth = other.recurmonth;
    recurinstance = other.recurinstance;
    recurweekday = other.recurweekday;
    recurweekmask = other.recurweekmask;
    recurinterval = other.recurinterval;
    recurrepeat = other.recurrepeat;
    recurenddate = other.recurenddate;
    recurhasenddate = other.recurhasenddate;
    remindermin = other.remindermin;
    priority = other.priority;
    complete = other.complete;
    reserve1 = other.reserve1;
    reserve2 = other.reserve2;
}

CCalendarConfigSet& CCalendarConfigSet::operator=(const CCalendarConfigSet& other) {
    if (this == &other) return *this;
    configs.clear();
    for (const auto& config : other.configs)
        if (config) configs.push_back(std::make_unique<CCalendarConfig>(*config));
    number = other.number;
    firstText = other.firstText;
    secondText = other.secondText;
    thirdText = other.thirdText;
    texts = other.texts;
    numbers = other.numbers;
    return *this;
}

std::int32_t CCalendarConfigSet::AddConfig(const CCalendarConfig& config) {
    try {
        configs.push_back(std::make_unique<CCalendarConfig>(config));
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
