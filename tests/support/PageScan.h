#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvale::test {

/// What of a page is markup that its template doesn't have: a tag that is no instance of one of the template's, a
/// comment, a link to where none may lead; empty if there is nothing such. Whatever the records say, it has to be
/// empty.
std::string MarkupBeyondTemplate(std::string_view page);

/// The tags of a page behind its head, in their order, without what stands in quotes.
std::vector<std::string> TagsOf(std::string_view page);

}  // namespace orvale::test
