#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Text.h"
#include "records/ContactFieldTypes.h"

/// How a record of SSY, a contact as text, is cut into its values.
namespace orvale {

/// The type of a field that a number of a record's pairs stands for; -1 for any other number.
std::int32_t TypeOfSSYNumber(std::int32_t number);

/// Takes an item outside the pairs, ended by a comma or with the text, its marks undone.
std::u16string TakeSSYItem(std::u16string_view& rest);

/// Goes through a record: given name, family name, two items that no field takes and the fourth name; pairs of a number
/// and a value, ended by a colon; email, web address, and whatever stands behind it. Calls `value(type, text)` and
/// `dropped(text)` for each item that isn't empty, in the order of the record.
template <class Value, class Dropped>
void CutSSYRecord(std::u16string_view text, Value&& value, Dropped&& dropped) {
    const auto take = [&](std::int32_t type, std::u16string item) {
        if (!item.empty()) value(type, std::move(item));
    };
    const auto drop = [&](std::u16string item) {
        if (!item.empty()) dropped(std::move(item));
    };
    take(CF_GIVEN_NAME, TakeSSYItem(text));
    take(CF_FAMILY_NAME, TakeSSYItem(text));
    drop(TakeSSYItem(text));
    drop(TakeSSYItem(text));
    take(CF_NAME_4, TakeSSYItem(text));
    std::u16string_view pairs = TakeToken(text, u":");
    while (!pairs.empty()) {
        const std::int32_t type = TypeOfSSYNumber(ToNumber(TakeToken(pairs, u",")));
        take(type, std::u16string(TakeToken(pairs, u",")));
    }
    take(CF_EMAIL_PREF, TakeSSYItem(text));
    take(CF_URL_1, TakeSSYItem(text));
    while (!text.empty())
        drop(TakeSSYItem(text));
}

}  // namespace orvale
