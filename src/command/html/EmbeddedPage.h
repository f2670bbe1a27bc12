#pragma once

#include <string_view>

namespace orvale {

/// The files beside this one as they were when the command was built; the build makes the source.
extern const std::string_view kPageTemplate;
extern const std::string_view kPageStyle;
extern const std::string_view kPageScript;

/// The Content-Security-Policy of the page: nothing from anywhere, and of what stands in the page the style and the
/// script alone, by their hashes.
extern const std::string_view kPagePolicy;

}  // namespace orvale
