#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("phonebook-xml") {
    orvale::fuzz::AskSettled<CContactItem>(orvale::FileFormat::kPhonebookXml, input);
}
