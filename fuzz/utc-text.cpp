#include "frame/UtcText.h"

#include "platform/Text.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

// A text that is a date is that date again when it was made a text.
ORVALE_FUZZ_TARGET("utc-text") {
    const std::u16string text = FromUtf8(input);
    DateValue date;
    if (!UtcTextToDate(text, date)) return;
    Must(date.GetStatus() == DateValue::kValid, "a text that is taken gives a valid date");
    Must(date.IsNone() || date.Fields().has_value(), "a text that is taken gives a date with parts");
    DateValue again;
    const std::u16string told = DateToUtcText(date);
    Must(UtcTextToDate(told, again), "a date's text is taken");
    Must(again.Value() == date.Value(), "a date's text gives the date");
    Must(DateToUtcText(again) == told, "a date's text stays what it is");
    DateToLocaleText(date);
}
