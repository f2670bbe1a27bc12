#include "platform/Registry.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/File.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// More than any hand or program writes here; what is larger is no registry file.
constexpr std::uint64_t kLargest = 1024 * 1024;

// The bytes of the registry file; none where there is no file. Throws where it is there and can't be read.
std::string ReadBytes(const std::string& path) {
    CFile file;
    std::error_code error;
    if (ToUtf8(FromUtf8(path)) != path)
        throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence), path);
    if (file.Open(FromUtf8(path).c_str(), CFile::kModeRead, &error) == 0) {
        if (error == std::errc::no_such_file_or_directory) return {};
        throw std::system_error(error, path);
    }
    const std::uint64_t length = file.GetLength();
    if (length > kLargest) throw std::system_error(std::make_error_code(std::errc::file_too_large), path);
    std::string bytes(length, '\0');
    bytes.resize(file.Read(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    return bytes;
}

// The lines of a text, each with its line end, the first with the mark that may stand before it.
std::vector<std::u16string> LinesOf(std::u16string_view text) {
    std::vector<std::u16string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

// What a line says: neither its mark nor its line end.
std::u16string_view Content(std::u16string_view line) {
    if (line.starts_with(u'\xFEFF')) line.remove_prefix(1);
    return Trim(line);
}

bool IsKeyLine(std::u16string_view line) {
    line = Content(line);
    return line.size() >= 2 && line.front() == u'[' && line.back() == u']';
}

bool IsLineOfKey(std::u16string_view line, std::u16string_view key) {
    line = Content(line);
    return IsKeyLine(line) && EqualsNoCase(line.substr(1, line.size() - 2), key);
}

// The data behind `"name"=` of a value line; none if the line holds another value or none.
std::optional<std::u16string_view> DataOfValue(std::u16string_view line, std::u16string_view valueName) {
    line = Content(line);
    if (line.empty() || line.front() != u'"') return std::nullopt;
    std::u16string name;
    std::size_t i = 1;
    for (; i < line.size() && line[i] != u'"'; ++i) {
        if (line[i] == u'\\' && i + 1 < line.size()) ++i;
        name.push_back(line[i]);
    }
    if (i >= line.size() || !EqualsNoCase(name, valueName)) return std::nullopt;
    const std::u16string_view rest = Trim(line.substr(i + 1));
    if (rest.empty() || rest.front() != u'=') return std::nullopt;
    return Trim(rest.substr(1));
}

int HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    const char16_t lower = ToLower(unit);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

std::optional<std::uint32_t> HexNumber(std::u16string_view digits, std::size_t most) {
    if (digits.empty() || digits.size() > most) return std::nullopt;
    std::uint32_t number = 0;
    for (const char16_t unit : digits) {
        if (HexDigit(unit) < 0) return std::nullopt;
        number = number << 4 | static_cast<std::uint32_t>(HexDigit(unit));
    }
    return number;
}

std::optional<std::uint32_t> ParseNumber(std::u16string_view data) {
    const std::size_t colon = data.find(u':');
    if (colon == std::u16string_view::npos) return std::nullopt;
    const std::u16string_view type = data.substr(0, colon);
    std::u16string_view rest = Trim(data.substr(colon + 1));
    if (EqualsNoCase(type, u"dword")) return HexNumber(rest, 8);
    // hex: and hex(type): four bytes, the lowest first.
    if (!EqualsNoCase(type.substr(0, std::min(type.find(u'('), type.size())), u"hex")) return std::nullopt;
    std::uint32_t number = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        const std::size_t comma = std::min(rest.find(u','), rest.size());
        const std::optional<std::uint32_t> byte = HexNumber(Trim(rest.substr(0, comma)), 2);
        if (!byte || (comma == rest.size()) != (shift == 24)) return std::nullopt;
        number |= *byte << shift;
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return number;
}

std::u16string ValueLine(std::u16string_view valueName, std::uint32_t number) {
    std::u16string line = u"\"";
    line += Replace(Replace(valueName, u"\\", u"\\\\"), u"\"", u"\\\"");
    line += u"\"=dword:";
    for (int shift = 28; shift >= 0; shift -= 4)
        line += u"0123456789abcdef"[number >> shift & 15];
    return line += u"\r\n";
}

void EndLine(std::u16string& line) {
    if (!line.ends_with(u'\n')) line += u"\r\n";
}

// Puts the line of a value in the place of the one that is there; else behind the last line of its key; else, with the
// key, at the end.
void PutValueLine(std::vector<std::u16string>& lines, std::u16string_view key, std::u16string_view valueName,
                  const std::u16string& valueLine) {
    std::optional<std::size_t> endOfKey;
    bool inKey = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (IsKeyLine(lines[i])) inKey = IsLineOfKey(lines[i], key);
        if (!inKey) continue;
        if (DataOfValue(lines[i], valueName)) {
            lines[i] = valueLine;
            return;
        }
        if (!Content(lines[i]).empty()) endOfKey = i + 1;
    }
    if (!endOfKey) {
        if (lines.empty()) lines.emplace_back(u"Windows Registry Editor Version 5.00\r\n");
        EndLine(lines.back());
        lines.emplace_back(u"\r\n");
        lines.push_back(u"[" + std::u16string(key) + u"]\r\n");
        endOfKey = lines.size();
    }
    EndLine(lines[*endOfKey - 1]);
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*endOfKey), valueLine);
}

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

std::string RegistryPath() {
    if (std::string path = Environment("ORVALE_REGISTRY"); !path.empty()) return path;
    if (const std::string folder = Environment("XDG_CONFIG_HOME"); !folder.empty()) return folder + "/orvale/user.reg";
    if (const std::string home = Environment("HOME"); !home.empty()) return home + "/.config/orvale/user.reg";
    return {};
}

std::optional<std::uint32_t> ReadRegistryNumber(std::u16string_view key, std::u16string_view valueName) {
    try {
        bool inKey = false;
        for (const std::u16string& line : LinesOf(FromUtf8(ReadBytes(RegistryPath())))) {
            if (IsKeyLine(line)) inKey = IsLineOfKey(line, key);
            if (!inKey) continue;
            if (const auto data = DataOfValue(line, valueName)) return ParseNumber(*data);
        }
    } catch (const std::exception&) {  // what can't be read counts as none
    }
    return std::nullopt;
}

void WriteRegistryNumber(std::u16string_view key, std::u16string_view valueName, std::uint32_t number) {
    if (RegistryPath().empty())
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory), "registry");
    const std::filesystem::path path = std::filesystem::absolute(RegistryPath());
    const std::string bytes = ReadBytes(path.string());
    const std::u16string text = FromUtf8(bytes);
    // Another encoding's lines could not be put back as they were.
    if (ToUtf8(text) != bytes) throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence), path);
    std::vector<std::u16string> lines = LinesOf(text);
    PutValueLine(lines, key, valueName, ValueLine(valueName, number));

    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
    AtomicFile file(path.native());
    for (const std::u16string& each : lines)
        file.Write(ToUtf8(each));
    file.Commit();
}

}  // namespace orvale
