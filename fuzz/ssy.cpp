#include "support/RecordFiles.h"

using namespace orvale;
using namespace orvale::fuzz;

// SSY is never written: what is in it goes through the native file, which keeps all of it. A record has at most 2048
// bytes, yet a native text ends at 1023 units; one that is longer can't be read back there.
ORVALE_FUZZ_TARGET("ssy") {
    const Scratch copy("copy");
    const Told first = CopyInput<CContactItem>(FileFormat::kSsy, input, FileFormat::kQzs, copy);
    const Told second = Read<CContactItem>(FileFormat::kQzs, copy.Path());
    std::size_t longest = 0;
    for (const std::u16string& record : first.records)
        longest = std::max(longest, record.size());
    if (longest <= 1023) Must(first.records == second.records, "contacts are the same in a native file");
}
