#pragma once

#include <string>
#include <string_view>

/// What stands beside a target until it is whole, under a name that begins with ".orvale-" and ends in ".tmp".
namespace orvale {

/// A new name for it in the folder of a path.
std::string UnfinishedName(std::string_view path);

/// Takes away the unfinished files and folders beside a path that a process left that was killed: those of this user
/// that nobody has touched for a day. Whatever stands in its way is passed over.
void RemoveLeftovers(std::string_view path) noexcept;

}  // namespace orvale
