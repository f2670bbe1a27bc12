#include "records/ValueTables.h"

#include <algorithm>

#include "platform/Format.h"
#include "platform/Text.h"

namespace orvale {

const NamedValue* FindValue(ValueTable table, std::int32_t value) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const NamedValue& row) { return row.value == value; });
    return found != table.end() ? &*found : nullptr;
}

std::string ValueCaption(ValueTable table, std::int32_t value) {
    const NamedValue* const row = FindValue(table, value);
    return row != nullptr ? std::string(row->caption) : std::to_string(value);
}

std::string FlagsCaption(ValueTable table, std::int32_t flags) {
    if (flags == 0) {
        const NamedValue* const row = FindValue(table, 0);
        return std::string(row != nullptr ? row->caption : "none");
    }
    std::string captions;
    const auto add = [&](std::string_view caption) {
        if (!captions.empty()) captions += ", ";
        captions += caption;
    };
    std::int32_t left = flags;
    for (const NamedValue& row : table) {
        if ((row.value & flags) == 0) continue;
        add(row.caption);
        left &= ~row.value;
    }
    if (left != 0) add(ToUtf8(Format(u"0x%X", left)));
    return captions;
}

}  // namespace orvale

std::string CalendarFieldCaption(std::int32_t type) {
    const orvale::NamedValue* const row = orvale::FindValue(orvale::kCalendarFieldTypes, type);
    return row != nullptr ? std::string(row->caption) : "text of type " + std::to_string(type);
}
