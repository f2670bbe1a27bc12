#include "platform/LineReader.h"

#include <algorithm>
#include <string_view>

namespace orvale {
namespace {

bool IsWhole(std::string_view line) {
    return line.size() >= 2 && line.back() == '\n' && line[line.size() - 2] == '\r';
}

}  // namespace

LineResult ReadLine(CFile& file, std::size_t limit, std::string& store, std::string_view& line) {
    store.clear();
    for (std::string_view ahead = file.Ahead(); !ahead.empty(); ahead = file.Ahead()) {
        ahead = ahead.substr(0, limit - store.size());
        const std::size_t feed = ahead.find('\n');
        const std::size_t taken = feed == std::string_view::npos ? ahead.size() : feed + 1;
        line = ahead.substr(0, taken);
        file.Skip(taken);
        if (store.empty() && IsWhole(line)) return LineResult::kLine;
        store.append(line);
        line = store;
        if (IsWhole(line)) return LineResult::kLine;
        if (store.size() == limit) return file.AtEnd() ? LineResult::kLine : LineResult::kTooLong;
    }
    return store.empty() ? LineResult::kEnd : LineResult::kLine;
}

}  // namespace orvale
