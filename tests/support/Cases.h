#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Text.h"
#include "support/Bytes.h"

/// What tests compare with and stands in files of its own, under tests/data.
namespace orvale::test {

/// The bytes of such a file.
inline std::string Data(const std::string& name) {
    std::ifstream in(std::string(ORVALE_TEST_DATA "/") + name, std::ios::binary);
    if (!in) throw std::runtime_error("no " + name);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Words of a table and what stands in their place before a row is read.
using Words = std::vector<std::pair<std::string, std::string>>;

std::string Spelled(std::string_view& text, std::size_t place = 0, bool inBraces = false);

/// What opens a text: an item in braces, or nothing. A text stands behind in `text` as it does behind Spelled.
inline std::optional<std::string> SpelledItem(std::string_view& text, std::size_t place) {
    const std::size_t mark = std::min(text.find_first_of("*:}"), text.size() - 1);
    const std::string head(text.substr(1, mark - 1));
    const bool repeats = text[mark] == '*' && !head.empty() && head.find_first_not_of("0123456789") == head.npos;
    if (!repeats && (text[mark] != ':' || (head != "i" && head != "s" && head != "b"))) return std::nullopt;
    text.remove_prefix(mark + 1);
    const std::string_view part = text;
    std::string bytes = Spelled(text, place, true);
    text.remove_prefix(1);
    if (head == "i") return Int32(std::stoll(bytes));
    if (head == "s") return String(orvale::FromUtf8(bytes));
    const std::string units = Units(orvale::FromUtf8(bytes));
    if (head == "b") return Int32(static_cast<std::int64_t>(units.size())) + units;
    const std::string_view told = part.substr(0, part.size() - text.size());
    const bool tellsPlaces = told.find("\\#") != told.npos || told.find("\\@") != told.npos;
    const std::size_t times = std::stoul(head);
    if (!tellsPlaces && bytes.size() == 1) return std::string(times, bytes[0]);
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        std::string_view again = part;
        all += tellsPlaces ? Spelled(again, i, true) : bytes;
    }
    return all;
}

/// A text as tables spell it, up to its end or that of the braces it stands in: \n, \r, \t, \0, \s for a blank and \xHH
/// for a byte; any other sign behind a backslash stands for itself. {3*text} is that text three times, in which \# is
/// the place, counted from 0, and \@ is it times 272, by which numbers share a bucket of a HashMap. Of native files,
/// {i:5} is a number of four bytes, {s:text} a text behind the number of its units, {b:text} one behind that of its
/// bytes.
inline std::string Spelled(std::string_view& text, std::size_t place, bool inBraces) {
    constexpr std::string_view kLetters = "nrt0s";
    std::string bytes;
    while (!text.empty() && !(inBraces && text[0] == '}')) {
        if (const auto item = text[0] == '{' ? SpelledItem(text, place) : std::nullopt) {
            bytes += *item;
        } else if (text.starts_with("\\x")) {
            bytes += static_cast<char>(std::stoul(std::string(text.substr(2, 2)), nullptr, 16));
            text.remove_prefix(4);
        } else if (text[0] == '\\') {
            const std::size_t letter = kLetters.find(text.at(1));
            if (text[1] == '#' || text[1] == '@')
                bytes += std::to_string(place * (text[1] == '@' ? 272 : 1));
            else
                bytes += letter != std::string_view::npos ? "\n\r\t\0 "[letter] : text[1];
            text.remove_prefix(2);
        } else {
            bytes += text[0];
            text.remove_prefix(1);
        }
    }
    return bytes;
}

/// The rows of a table under tests/data: one a line, its columns with " => " between them and blanks around them aside.
/// Lines that are empty or begin with "# " are none.
inline std::vector<std::vector<std::string>> Cases(const std::string& name, const Words& words = {},
                                                   bool spelled = true) {
    constexpr std::string_view kArrow = "=>";
    std::vector<std::vector<std::string>> cases;
    std::ifstream in(std::string(ORVALE_TEST_DATA "/") + name);
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line.starts_with("# ")) continue;
        for (const auto& [word, text] : words)
            for (std::size_t at = 0; (at = line.find(word, at)) != std::string::npos; at += text.size())
                line.replace(at, word.size(), text);
        auto& columns = cases.emplace_back();
        std::string_view rest = line;
        for (std::size_t arrow = 0; arrow != std::string_view::npos;) {
            arrow = (" " + std::string(rest) + " ").find(" => ");
            std::string_view column = rest.substr(0, arrow);
            column.remove_prefix(std::min(column.find_first_not_of(' '), column.size()));
            column.remove_suffix(column.size() - (column.find_last_not_of(' ') + 1));
            columns.push_back(spelled ? Spelled(column) : std::string(column));
            rest.remove_prefix(arrow != std::string_view::npos ? arrow + kArrow.size() : rest.size());
        }
    }
    if (cases.empty()) throw std::runtime_error("no cases in " + name);
    return cases;
}

}  // namespace orvale::test
