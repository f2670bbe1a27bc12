#include <sstream>

#include "command/formats/Kinds.h"
#include "command/html/Page.h"
#include "command/json/JsonDocument.h"
#include "support/PageScan.h"
#include "support/Scratch.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

// The page of a document's records, of those before a break where there is one.
std::string PageOf(const Scratch& file) {
    Page page;
    try {
        JsonDocument document(file.Path(), "input");
        page.Expect(document.GetKind());
        page.AddProfile(document.GetProfile(), true);
        VisitKind(document.GetKind(), [&]<class Record>(std::type_identity<Record>) {
            for (Record record; document.Next(record); record = Record())
                page.Put(record);
        });
    } catch (const CommandError&) {  // refused from here on
    }
    std::ostringstream out;
    page.Write(out);
    return std::move(out).str();
}

}  // namespace

// No text of any record is markup in the page. Memory isn't held against the input: the drawing of repetitions takes
// more, up to a limit of its own.
ORVALE_FUZZ_TARGET("page") {
    Must(test::MarkupBeyondTemplate(PageOf(Scratch("input", input))).empty(), "a page has its template's markup alone");
}
