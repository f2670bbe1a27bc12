#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("email-xml") {
    const auto keeps = [](const CEmailItem& email) {
        using orvale::fuzz::HasWholeYear;
        return HasWholeYear(email.received) && HasWholeYear(email.sent);
    };
    orvale::fuzz::AskSettled<CEmailItem>(orvale::FileFormat::kEmailXml, input, keeps);
}
