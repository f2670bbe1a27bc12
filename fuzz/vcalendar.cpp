#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("vcalendar") {
    orvale::fuzz::AskSettled<CCalendarItem>(orvale::FileFormat::kVCalendar, input);
}
