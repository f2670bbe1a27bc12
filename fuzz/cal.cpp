#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("cal") {
    orvale::fuzz::AskExact<CCalendarItem>(orvale::FileFormat::kCal, input);
}
