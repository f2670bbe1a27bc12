#pragma once

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// What tests compare with and stands in files of its own, under tests/data.
namespace orvale::test {

/// The bytes of such a file.
inline std::string Data(const std::string& name) {
    std::ifstream in(std::string(ORVALE_TEST_DATA "/") + name, std::ios::binary);
    if (!in) throw std::runtime_error("no " + name);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A text as tables spell it, up to its end or that of the braces it stands in: \n, \r, \t, \0, \s for a blank and \xHH
/// for a byte; any other sign behind a backslash stands for itself; and {3*text} is that text three times.
inline std::string Spelled(std::string_view& text, bool inBraces = false) {
    constexpr std::string_view kLetters = "nrt0s";
    std::string bytes;
    while (!text.empty() && !(inBraces && text[0] == '}')) {
        const std::size_t star = std::min(text.find_first_not_of("0123456789", 1), text.size() - 1);
        if (text[0] == '{' && star > 1 && text[star] == '*') {
            std::size_t times = std::stoul(std::string(text.substr(1)));
            text.remove_prefix(star + 1);
            const std::string part = Spelled(text, true);
            text.remove_prefix(1);
            bytes.reserve(bytes.size() + times * part.size());
            while (times-- > 0)
                bytes += part;
        } else if (text.starts_with("\\x")) {
            bytes += static_cast<char>(std::stoul(std::string(text.substr(2, 2)), nullptr, 16));
            text.remove_prefix(4);
        } else if (text[0] == '\\') {
            const std::size_t letter = kLetters.find(text.at(1));
            bytes += letter != std::string_view::npos ? "\n\r\t\0 "[letter] : text[1];
            text.remove_prefix(2);
        } else {
            bytes += text[0];
            text.remove_prefix(1);
        }
    }
    return bytes;
}

/// The rows of a table: one a line, its columns with " => " between them and blanks around them aside. Lines that are
/// empty or begin with "# " are none.
inline std::vector<std::vector<std::string>> Cases(const std::string& name) {
    constexpr std::string_view kArrow = "=>";
    std::vector<std::vector<std::string>> cases;
    std::ifstream in(std::string(ORVALE_TEST_DATA "/") + name);
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line.starts_with("# ")) continue;
        auto& columns = cases.emplace_back();
        std::string_view rest = line;
        for (std::size_t arrow = 0; arrow != std::string_view::npos;) {
            arrow = (" " + std::string(rest) + " ").find(" => ");
            std::string_view column = rest.substr(0, arrow);
            column.remove_prefix(std::min(column.find_first_not_of(' '), column.size()));
            column.remove_suffix(column.size() - (column.find_last_not_of(' ') + 1));
            columns.push_back(Spelled(column));
            rest.remove_prefix(arrow != std::string_view::npos ? arrow + kArrow.size() : rest.size());
        }
    }
    if (cases.empty()) throw std::runtime_error("no cases in " + name);
    return cases;
}

}  // namespace orvale::test
