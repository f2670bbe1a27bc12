#pragma once

#include <filesystem>
#include <string>

namespace orvale {

/// The manual page of the command, orvale(1), for the program man. The date is that of the page, YYYY-MM-DD.
std::string CommandPage(const std::string& date);

/// The manual page of the formats, orvale(5). What it tells of a format is the head of the page NAME.md in a folder
/// of documents; a format without such a page is told by its row alone.
std::string FormatsPage(const std::filesystem::path& documents, const std::string& date);

}  // namespace orvale
