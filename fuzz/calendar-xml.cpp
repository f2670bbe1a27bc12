#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("calendar-xml") {
    orvale::fuzz::AskSettled<CCalendarItem>(orvale::FileFormat::kCalendarXml, input);
}
