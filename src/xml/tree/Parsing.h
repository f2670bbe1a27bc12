#pragma once

#include <string>
#include <string_view>

#include "xml/tree/Library.h"

/// A tree from bytes, which may be an enemy's: nothing outside of them is looked at, and what would cost more than its
/// bytes allow is refused (see CXMLDocument for the limits). Blank texts beside elements get no node, a name is whole
/// with its prefix, and a namespace's declaration is an attribute like others.
namespace orvale::tree {

/// Null for a file that can't be read or isn't well-formed. Throws std::bad_alloc.
DocumentPtr ParseFile(const std::u16string& path);

/// The same for a text; an encoding that it declares isn't looked at.
DocumentPtr ParseText(std::u16string_view text);

}  // namespace orvale::tree
