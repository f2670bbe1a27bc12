#pragma once

#include <string>
#include <vector>

/// What stands in a folder. Not by the standard library's ways through one, std::filesystem::directory_iterator and
/// remove_all, which end the process where they find no memory. Both throw std::system_error, or std::bad_alloc.
namespace orvale {

/// The names in a folder but "." and "..", in the system's order.
std::vector<std::string> NamesIn(const std::string& folder);

/// Takes away a file, a link, or a folder with all that is in it. What isn't there is gone; where something stays, so
/// do the folders above it.
void RemoveAll(const std::string& path);

}  // namespace orvale
