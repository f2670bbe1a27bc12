#include "command/exchange/Claims.h"

#include <algorithm>
#include <string>

#include "command/scan/TextScan.h"

namespace orvale {
namespace {

constexpr std::size_t kLookedAt = 4096;  // of a calendar
constexpr std::size_t kLongestBegin = 1000;

}  // namespace

bool ClaimsIcs(const std::filesystem::path& path, std::string_view head, const FormatRow* found) {
    if (head.starts_with("\xEF\xBB\xBF")) head.remove_prefix(3);
    head.remove_prefix(std::min(head.find_first_not_of(" \t\r\n"), head.size()));
    std::string start(head.substr(0, kLookedAt));
    std::transform(start.begin(), start.end(), start.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    if (!start.starts_with("BEGIN:VCALENDAR")) return false;
    if (found == nullptr || found->type != FileFormat::kVCalendar) return found == nullptr;
    const std::size_t version = start.find("\nVERSION:");
    if (version == std::string::npos || !start.substr(version).starts_with("\nVERSION:1.0")) return true;
    if (head.find("\r\n") == std::string_view::npos) return true;
    return !VCalendarReaderTakesAll(path);
}

bool ClaimsMbox(const std::filesystem::path&, std::string_view head, const FormatRow* found) {
    if (found != nullptr || !head.starts_with("From ")) return false;
    const std::size_t feed = head.find('\n');
    if (feed == std::string_view::npos || feed > kLongestBegin) return false;
    const std::string_view second = head.substr(feed + 1, head.find('\n', feed + 1) - feed - 1);
    const std::size_t colon = second.find(':');
    return colon != std::string_view::npos && colon != 0 && second.find(' ') > colon;
}

}  // namespace orvale
