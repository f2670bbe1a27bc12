#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("calendar-xml") {
    const auto keeps = [](const CCalendarItem& item) {
        using orvale::fuzz::HasWholeYear;
        return HasWholeYear(item.dtstart) && HasWholeYear(item.dtend) && HasWholeYear(item.recurenddate);
    };
    orvale::fuzz::AskSettled<CCalendarItem>(orvale::FileFormat::kCalendarXml, input, keeps);
}
