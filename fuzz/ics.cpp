#include "command/exchange/IcsFile.h"
#include "support/OwnFormats.h"

ORVALE_FUZZ_TARGET("ics") {
    orvale::fuzz::AskOwnExact<CCalendarItem>(orvale::kIcsFormat, input,
                                             "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\n"
                                             "DTSTART;TZID=Europe/Berlin:20100726T060000\r\nRRULE:FREQ=DAILY\r\n"
                                             "END:VEVENT\r\nEND:VCALENDAR\r\n");
}
