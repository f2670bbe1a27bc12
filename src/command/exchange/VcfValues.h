#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "command/exchange/VcfTable.h"

/// Values that have one form in a card and another in a contact: addresses behind a scheme, days, genders. The way in
/// and the way out of each stand side by side.
namespace orvale {

/// The texts of several parts in one, those that say something, with commas between.
std::u16string JoinFilled(std::span<const std::u16string> parts);

// ---- "tel:" and "mailto:", which are no part of a number or an address

/// Takes the scheme of a shape off the front of a text.
void RemoveVcfScheme(std::u16string& text, VcfShape shape);

/// Whether a text, once it was written, begins with what RemoveVcfScheme takes off.
bool HasVcfScheme(std::u16string_view text, VcfShape shape);

// ---- days: "19650314" in a contact

/// The day of a card, "1965-03-14", "1965-03-14T00:00:00Z" or without its year "--03-14", as contacts have it; any
/// other text as it is.
std::u16string DayFromVcf(std::u16string text);

/// The day of a contact as a version writes it: 3.0 with hyphens, and whole ones alone; 4.0 also those that lack a
/// part, "1985-04" or "--0412". None for other texts.
std::optional<std::u16string> DayToVcf(std::u16string_view day, VcfVersion version);

/// Whether a text is a day as 3.0 writes it.
bool IsDashedDay(std::u16string_view text);

// ---- genders of 4.0: a letter, a text, or both, "M;Fellow"; in a contact "M, Fellow"

struct VcfGender {
    std::u16string_view letter;
    std::u16string_view text;
};

inline std::u16string GenderFromVcf(std::span<const std::u16string> parts) {
    return JoinFilled(parts);
}

VcfGender GenderToVcf(std::u16string_view gender);

}  // namespace orvale
