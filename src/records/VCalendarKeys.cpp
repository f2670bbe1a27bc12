#include "records/VCalendarKeys.h"

#include "platform/Text.h"

namespace orvale {

std::int32_t GetVCalendarPropertyId(std::u16string_view key) {
    for (const VCalendarPropertyRow& row : kVCalendarProperties)
        if (EqualsNoCase(row.key, key)) return row.id;
    return PROPERTY_UNKNOWN;
}

const VCalendarPropertyRow* FindVCalendarProperty(std::int32_t id) {
    for (const VCalendarPropertyRow& row : kVCalendarProperties)
        if (row.id == id) return &row;
    return nullptr;
}

bool IsVCalendarField(std::int32_t id) {
    const VCalendarPropertyRow* const row = FindVCalendarProperty(id);
    return row != nullptr && row->quotedPrintable;
}

}  // namespace orvale
