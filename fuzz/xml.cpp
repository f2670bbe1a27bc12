#include "xml/XMLDocument.h"

#include <vector>

#include "platform/Text.h"
#include "support/MemoryWatch.h"
#include "support/Scratch.h"
#include "support/Target.h"

using namespace orvale;
using namespace orvale::fuzz;

namespace {

// All that a walk meets, with the depth of each; only leaves tell their text, as the others' is made of theirs.
std::u16string WalkOf(const CXMLDocument& document) {
    std::u16string walk;
    std::vector<NodeHandle> road{document.GetRoot()};
    if (!road.back()) return walk;
    while (!road.empty()) {
        const NodeHandle node = road.back();
        Must(document.HasName(node, document.GetName(node)), "a node has its name");
        walk += static_cast<char16_t>(road.size());
        walk += document.GetName(node);
        walk += u'\0';
        if (const NodeHandle child = document.FirstChild(node)) {
            road.push_back(child);
            continue;
        }
        walk += document.GetText(node);
        walk += u'\0';
        while (!road.empty() && !document.NextSibling(road.back()))
            road.pop_back();
        if (!road.empty()) road.back() = document.NextSibling(road.back());
    }
    return walk;
}

}  // namespace

// What a walk meets in a document is what it meets when the document was saved and loaded; and a document that loads
// from a file is the same as one that is parsed from the text.
ORVALE_FUZZ_TARGET("xml") {
    const Scratch file("input.xml", input);
    const Scratch copy("copy.xml");
    CXMLDocument document;
    const std::u16string text = FromUtf8(input);
    const std::u16string walk = [&] {
        const MemoryWatch watch(input.size());
        Must(document.LoadXML(text) == 1, "a text is parsed or gives the empty document");
        return WalkOf(document);
    }();

    CXMLDocument loaded;
    loaded.Create(FromUtf8(file.Path()));
    {
        const MemoryWatch watch(input.size());
        if (loaded.Load() != 1) loaded.Create(FromUtf8(file.Path()));
        WalkOf(loaded);
    }

    if (walk.empty()) return;
    CXMLDocument again;
    loaded.Create(FromUtf8(copy.Path()));
    loaded.LoadXML(text);
    Must(WalkOf(loaded) == walk, "a text is parsed as before");
    Must(loaded.Save() == 1, "what was parsed can be saved");
    again.Create(FromUtf8(copy.Path()));
    Must(again.Load() == 1, "what was saved can be loaded");
    Must(WalkOf(again) == walk, "a walk meets what it met before");
    copy.Remove();
}
