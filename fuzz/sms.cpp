#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("sms") {
    orvale::fuzz::AskExact<CSMSItem>(orvale::FileFormat::kSms, input);
}
