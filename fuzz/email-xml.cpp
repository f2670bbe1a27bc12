#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("email-xml") {
    orvale::fuzz::AskSettled<CEmailItem>(orvale::FileFormat::kEmailXml, input);
}
