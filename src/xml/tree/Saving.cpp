#include "xml/tree/Saving.h"

#include <libxml/xmlsave.h>

namespace orvale::tree {
namespace {

struct Sink {
    AtomicFile& file;
    bool failed = false;
};

// The library forgets that a write failed.
int WriteBytes(void* context, const char* bytes, int size) noexcept {
    auto& sink = *static_cast<Sink*>(context);
    try {
        if (!sink.failed) sink.file.Write({bytes, static_cast<std::size_t>(size)});
    } catch (...) {
        sink.failed = true;
    }
    return sink.failed ? -1 : size;
}

}  // namespace

bool WriteDocument(xmlDoc* document, AtomicFile& file) {
    const QuietLibrary quiet;
    Sink sink{file};
    xmlSaveCtxt* const save =
        xmlSaveToIO(WriteBytes, nullptr, &sink, "UTF-8", XML_SAVE_NO_DECL | XML_SAVE_NO_XHTML | XML_SAVE_AS_XML);
    if (save == nullptr) return false;
    const bool written = xmlSaveDoc(save, document) >= 0;
    const bool closed = xmlSaveClose(save) >= 0;
    return written && closed && !sink.failed && !quiet.HeardShortage();
}

}  // namespace orvale::tree
