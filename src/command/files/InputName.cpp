#include "command/files/InputName.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "command/console/CommandError.h"
#include "platform/Folder.h"

namespace orvale {
namespace {

constexpr const char* kStandardInput = "standard input";

const FormatRow& ReadableFormat(const std::string& name) {
    const FormatRow& format = FormatOfName(name);
    if (!format.Reads()) FailUsage(WhyNotRead(format));
    return format;
}

InputName ResolveFile(const std::string& name, const std::string& formatName) {
    if (!formatName.empty()) return {name, name, &ReadableFormat(formatName), true};
    const FormatRow* const format = DetectFormat(name);
    if (format != nullptr && !format->Reads()) FailFile(name, "", WhyNotRead(*format));
    if (format == nullptr) FailFile(name, "", "not recognised as any format");
    return {name, name, format, false};
}

// Whether one name comes before another, runs of digits by their value.
bool NameComesBefore(const std::string& a, const std::string& b) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (!isDigit(a[i]) || !isDigit(b[j])) {
            if (a[i] != b[j]) return a[i] < b[j];
            ++i;
            ++j;
            continue;
        }
        const auto run = [&](const std::string& text, std::size_t& place) {
            const std::size_t first = std::min(text.find_first_not_of('0', place), text.size());
            place = first;
            while (place < text.size() && isDigit(text[place]))
                ++place;
            return std::string_view(text).substr(first, place - first);
        };
        const std::string_view left = run(a, i);
        const std::string_view right = run(b, j);
        if (left.size() != right.size()) return left.size() < right.size();
        if (left != right) return left < right;
    }
    return a.size() - i != b.size() - j ? a.size() - i < b.size() - j : a < b;
}

std::vector<std::string> NamesOfFolder(const std::string& folder) {
    try {
        return NamesIn(folder);
    } catch (const std::system_error& error) {
        FailFile(folder, "", SystemReason(error.code()));
    }
}

void ResolveFolder(const std::string& name, const std::string& formatName, std::vector<InputName>& inputs) {
    const FormatRow& format = formatName.empty() ? *FormatOfFolders() : FormatOfName(formatName);
    if (format.endRule != EndRule::kOneRecord) FailFile(name, "", "is a folder");
    const auto isOne = [&](const std::filesystem::path& path) {
        if (DetectFormat(path) == &format) return true;
        // One that a format of the command's own reads better is still one.
        const FormatInfo* const info = formatName.empty() ? DetectByContent(path) : nullptr;
        return info != nullptr && info->format == format.type;
    };
    std::vector<std::string> files;
    std::vector<std::string> others;
    for (const std::string& each : NamesOfFolder(name)) {
        const std::filesystem::path path = std::filesystem::path(name) / each;
        std::error_code ignored;
        if (each.starts_with('.') || !std::filesystem::is_regular_file(path, ignored)) continue;
        (isOne(path) ? files : others).push_back(path.string());
    }
    if (files.empty()) FailFile(name, "", "is a folder without a file of the format " + std::string(format.name));
    std::sort(others.begin(), others.end(), NameComesBefore);
    for (const std::string& other : others)
        TellUser(ErrorLine(other, "", "passed over, for it is no file of the format " + std::string(format.name)));
    std::sort(files.begin(), files.end(), NameComesBefore);
    for (const std::string& file : files)
        inputs.push_back({file, file, formatName.empty() ? DetectFormat(file) : &format, !formatName.empty()});
}

InputName SpoolStandardInput(const std::string& formatName) {
    if (formatName.empty()) FailUsage("nothing tells the format of standard input; --format, or --from, names it");
    try {
        const auto spool = std::make_shared<TemporaryFile>();
        spool->TakeStandardInput();
        return {kStandardInput, spool->Path(), &FormatOfName(formatName), true, nullptr, spool};
    } catch (const std::system_error& error) {
        FailFile(kStandardInput, "temporary file", SystemReason(error.code()));
    }
}

}  // namespace

std::string ShownName(const std::string& name) {
    return name == kStandardStream ? kStandardInput : name;
}

void RequireOneStandardInput(std::span<const std::string> names) {
    if (std::count(names.begin(), names.end(), kStandardStream) > 1) FailUsage("standard input can be read only once");
}

std::vector<InputName> ResolveInputs(const std::vector<std::string>& names, const std::string& formatName) {
    if (!formatName.empty()) ReadableFormat(formatName);  // a wrong word is told before a wrong file
    RequireOneStandardInput(names);
    std::vector<InputName> inputs;
    for (const std::string& name : names) {
        if (name == kStandardStream) {
            inputs.push_back(SpoolStandardInput(formatName));
            continue;
        }
        std::error_code error;
        const std::filesystem::file_status status = std::filesystem::status(name, error);
        if (!std::filesystem::exists(status)) FailFile(name, "", error ? error.message() : "no such file");
        if (std::filesystem::is_directory(status))
            ResolveFolder(name, formatName, inputs);
        else if (!std::filesystem::is_regular_file(status))
            FailFile(name, "", "is no regular file");
        else
            inputs.push_back(ResolveFile(name, formatName));
    }
    return inputs;
}

}  // namespace orvale
