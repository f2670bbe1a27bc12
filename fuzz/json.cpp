#include <optional>
#include <sstream>

#include "command/formats/Kinds.h"
#include "command/json/JsonDocument.h"
#include "command/json/ProfileJson.h"
#include "support/MemoryWatch.h"
#include "support/Scratch.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

// Writes the document that stands in a file once more; none where it fails or ends too early.
std::optional<std::string> Rewritten(const Scratch& file) {
    try {
        JsonDocument document(file.Path(), "input");
        std::ostringstream out;
        JsonDocumentWriter writer(out, document.GetKind(), document.GetProfile(), true);
        VisitKind(document.GetKind(), [&]<class Record>(std::type_identity<Record>) {
            for (Record record; document.Next(record); record = Record())
                writer.Put(record);
        });
        writer.Finish();
        if (document.BrokenAt()) return std::nullopt;
        Must(writer.Losses().empty(), "what JSON told can be told in JSON");
        return out.str();
    } catch (const CommandError&) {  // the one way in which a document may be refused
        return std::nullopt;
    }
}

}  // namespace

// A document that reads, written and read and written again, has the same bytes.
ORVALE_FUZZ_TARGET("json") {
    const std::optional<std::string> first = [&] {
        const Scratch file("input", input);
        const MemoryWatch watch(input.size());
        return Rewritten(file);
    }();
    if (!first) return;
    Must(Rewritten(Scratch("copy", *first)) == first, "a document that was written comes back as it was");
}
