#include <algorithm>

#include "command/formats/FormatTable.h"
#include "host/Formats.h"
#include "support/MemoryWatch.h"
#include "support/Scratch.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

// No two formats of the module are sure of one file, the surest is the one that is told, and bytes behind the head
// change nothing.
ORVALE_FUZZ_TARGET("detection") {
    const Scratch file("input", input);
    const FormatRow* found = nullptr;
    {
        const MemoryWatch watch(input.size());
        found = DetectFormat(file.Path());
    }
    const auto sure = [&](const FormatInfo& info) { return info.looksLike(input, input.size()) == Likeness::kSure; };
    const auto formats = AllFormats();
    const auto count = std::count_if(formats.begin(), formats.end(), sure);
    Must(count <= 1, "no two formats are sure of a file");
    if (count == 0) return;
    const auto surest = std::find_if(formats.begin(), formats.end(), sure);
    // One of the command's own takes over what its kind tells better.
    const bool isTakenOver = found != nullptr && found->own != nullptr && found->kind == surest->kind;
    Must(found != nullptr && (found->type == surest->format || isTakenOver), "the format that is sure is told");
    Must(surest->looksLike(input, input.size() + 1) == Likeness::kSure, "the size says nothing where the content does");
}
