#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Folders, and what stands in them. Not by the standard library's ways through one,
/// std::filesystem::directory_iterator and remove_all, which end the process where they find no memory. What the system
/// refuses is thrown as std::system_error.
namespace orvale {

/// The folder of a path, with its slash; empty for a name alone.
std::string FolderOf(std::string_view path);

/// The names in a folder but "." and "..", in the system's order.
std::vector<std::string> NamesIn(const std::string& folder);

/// Takes away a file, a link, or a folder with all that is in it. What isn't there is gone; where something stays, so
/// do the folders above it.
void RemoveAll(const std::string& path);

}  // namespace orvale
