#include "support/RecordFiles.h"

// Groups go out in an order that turns round at each writing, so the second one has to be as the first reading.
ORVALE_FUZZ_TARGET("qzs") {
    constexpr int kWritings = 2;
    orvale::fuzz::AskExact<CContactItem>(orvale::FileFormat::kQzs, input, kWritings);
}
