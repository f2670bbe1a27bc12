#pragma once

#include "platform/AtomicFile.h"
#include "xml/tree/Library.h"

namespace orvale::tree {

/// Writes a document as UTF-8, exactly as its nodes stand: neither a declaration nor white space is added. False where
/// the file doesn't take it, or where memory runs out.
bool WriteDocument(xmlDoc* document, AtomicFile& file);

}  // namespace orvale::tree
