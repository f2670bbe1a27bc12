#include "records/VCalendarKeys.h"

#include "platform/Text.h"

namespace orvale {

std::int32_t GetVCalendarPropertyId(std::u16string_view key) {
    for (const VCalendarPropertyRow& row : kVCalendarProperties)
        if (EqualsNoCase(row.key, key)) return row.id;
    return PROPERTY_UNKNOWN;
}

}  // namespace orvale
