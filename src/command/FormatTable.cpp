#include "command/FormatTable.h"

#include <algorithm>
#include <string>
#include <vector>

#include "command/CommandError.h"

namespace orvale {
namespace {

// What the command adds to what hosts know of a format.
struct Addition {
    FileFormat type;
    EndRule endRule;
};

constexpr Addition kAdditions[] = {
    {FileFormat::kQzs, EndRule::kBytesLeft},       {FileFormat::kVCard, EndRule::kWhiteSpaceLeft},
    {FileFormat::kSms, EndRule::kLastRecordSize},  {FileFormat::kCal, EndRule::kBytesLeft},
    {FileFormat::kVCalendar, EndRule::kOneRecord}, {FileFormat::kEml, EndRule::kBytesLeft},
};

constexpr Format kJson{"json", std::nullopt, ".json", std::nullopt, true, EndRule::kNone};

EndRule EndRuleOf(FileFormat type) {
    for (const Addition& row : kAdditions)
        if (row.type == type) return row.endRule;
    return EndRule::kNone;
}

const std::vector<Format>& Table() {
    static const std::vector<Format> table = [] {
        std::vector<Format> rows;
        for (const FormatInfo& info : AllFormats())
            rows.push_back({info.name, info.kind, info.extension, info.format, info.writes, EndRuleOf(info.format)});
        rows.push_back(kJson);
        return rows;
    }();
    return table;
}

const Format* RowOf(std::string_view name) {
    for (const Format& row : Table())
        if (row.name == name) return &row;
    return nullptr;
}

bool LooksLikeJson(std::string_view head) {
    if (head.starts_with("\xEF\xBB\xBF")) head.remove_prefix(3);
    const std::size_t first = head.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && head[first] == '{';
}

// How many letters have to be changed, put in or taken out to make one word of another.
std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = j;
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t change = diagonal + (a[i] != b[j]);
            diagonal = row[j + 1];
            row[j + 1] = std::min({change, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

std::span<const Format> FormatTable() {
    return Table();
}

const Format& FormatOfName(std::string_view name) {
    if (const Format* row = RowOf(name)) return *row;
    std::string reason = "unknown format '" + Quote(name) + "'";
    const auto near = std::min_element(Table().begin(), Table().end(), [&](const Format& a, const Format& b) {
        return EditDistance(name, a.name) < EditDistance(name, b.name);
    });
    constexpr std::size_t kNear = 3;
    if (name.size() < 32 && EditDistance(name, near->name) <= kNear)
        reason += "; is '" + std::string(near->name) + "' meant?";
    FailUsage(reason + " ('orvale formats' lists them)");
}

const Format* DetectFormat(const std::filesystem::path& path) {
    if (const FormatInfo* info = DetectByContent(path)) return RowOf(info->name);
    const std::optional<std::string> head = ReadHead(path);
    if (head && LooksLikeJson(*head)) return RowOf(kJson.name);
    return FormatOfExtension(path);
}

const Format* FormatOfFolders() {
    for (const Format& row : Table())
        if (row.endRule == EndRule::kOneRecord) return &row;
    return nullptr;
}

const Format* FormatOfExtension(const std::filesystem::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    for (const Format& row : Table())
        if (row.extension == extension) return &row;
    return nullptr;
}

std::string VerifyName(std::int32_t code) {
    switch (code) {
        case VERIFY_OK:
            return "VERIFY_OK";
        case VERIFY_WRONG_FLAG:
            return "VERIFY_WRONG_FLAG";
        case VERIFY_NOT_OPENED:
            return "VERIFY_NOT_OPENED";
        case VERIFY_NOT_READ_HEADER:
            return "VERIFY_NOT_READ_HEADER";
        case VERIFY_WRONG_SIZE:
            return "VERIFY_WRONG_SIZE";
        default:
            return "verify code " + std::to_string(code);
    }
}

std::string_view KindWord(Kind kind) {
    switch (kind) {
        case Kind::kContacts:
            return "contacts";
        case Kind::kCalendar:
            return "calendar";
        case Kind::kSms:
            return "sms";
        case Kind::kEmail:
            return "email";
    }
    return "";
}

std::string_view RecordWord(Kind kind, bool several) {
    switch (kind) {
        case Kind::kContacts:
            return several ? "contacts" : "contact";
        case Kind::kCalendar:
            return several ? "calendar entries" : "calendar entry";
        case Kind::kSms:
            return several ? "messages" : "message";
        case Kind::kEmail:
            return several ? "emails" : "email";
    }
    return "";
}

}  // namespace orvale
