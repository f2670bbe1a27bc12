#include "xml/tree/Library.h"

#include <libxml/parser.h>

namespace orvale::tree {

void SetUpLibrary() {
    static const bool done = [] {
        const QuietLibrary quiet;
        xmlInitParser();
        return true;
    }();
    static_cast<void>(done);
}

}  // namespace orvale::tree
