#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("sms-xml") {
    orvale::fuzz::AskSettled<CSMSItem>(orvale::FileFormat::kSmsXml, input);
}
