#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace orvale {

/// One line of a vCard or vCalendar between text and record.
struct TextProperty {
    std::int32_t id;       // of the format's table of keys
    std::u16string value;  // in its file form: not decoded yet, or not encoded yet
};

using TextPropertyList = std::vector<TextProperty>;

/// Appends a property unless its value is empty. A zero unit ends a value: it must not end the file's text.
inline void AddProperty(std::u16string_view value, std::int32_t id, TextPropertyList& list) {
    value = value.substr(0, FindUnit(value, u'\0'));
    if (!value.empty()) list.push_back({id, std::u16string(value)});
}

}  // namespace orvale
