#pragma once

#include <libxml/globals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <memory>
#include <new>
#include <string>

/// The tree that stands behind CXMLDocument is the XML library's. Only this folder and
/// XMLDocument.cpp know the library: what each use of it needs (here), the nodes and texts of a tree (Nodes.h), and a
/// tree from bytes and back (Parsing.h, Saving.h).
namespace orvale::tree {

struct FreeDocument {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using DocumentPtr = std::unique_ptr<xmlDoc, FreeDocument>;

inline const xmlChar* Bytes(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}
inline const char* Characters(const xmlChar* bytes) {
    return reinterpret_cast<const char*>(bytes);
}

/// What the library could not make for want of memory.
template <class Made>
Made* Required(Made* made) {
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

/// Keeps the library's messages of this thread from the host's handlers and from standard error while it lives, and
/// hears of a want of memory, of which the library's results often say nothing.
class QuietLibrary {
 public:
    QuietLibrary() {
        xmlSetStructuredErrorFunc(this, [](void* self, auto error) { static_cast<QuietLibrary*>(self)->Hear(*error); });
    }
    ~QuietLibrary() { xmlSetStructuredErrorFunc(context_, handler_); }
    QuietLibrary(const QuietLibrary&) = delete;
    QuietLibrary& operator=(const QuietLibrary&) = delete;

    bool HeardShortage() const { return shortage_; }

 private:
    void Hear(const xmlError& error) { shortage_ = shortage_ || error.code == XML_ERR_NO_MEMORY; }

    bool shortage_ = false;
    xmlStructuredErrorFunc handler_ = xmlStructuredError;
    void* context_ = xmlStructuredErrorContext;
};

/// Comes before the first document and the first parse. The library sets itself up at its first use, and two threads
/// that meet there both do: its mutexes are made twice.
void SetUpLibrary();

}  // namespace orvale::tree
