#include "support/RecordFiles.h"

ORVALE_FUZZ_TARGET("eml") {
    orvale::fuzz::AskExact<CEmailItem>(orvale::FileFormat::kEml, input);
}
