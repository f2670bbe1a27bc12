#pragma once

#include <string>
#include <string_view>

namespace orvale {

/// Bytes in printable ASCII: a percent sign and two digits for all that isn't printable, a blank or a percent sign, and
/// for what `alsoMarked` names.
std::string PercentForm(std::string_view bytes, std::string_view alsoMarked = "");

/// The bytes of such a form.
std::string PercentBytes(std::string_view form);

}  // namespace orvale
