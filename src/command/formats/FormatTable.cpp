#include "command/formats/FormatTable.h"

#include <algorithm>
#include <string>
#include <vector>

#include "command/console/CommandError.h"
#include "command/console/EditDistance.h"
#include "command/exchange/Claims.h"
#include "command/exchange/VcfFormat.h"
#if ORVALE_ICAL
#include "command/exchange/IcsFile.h"
#endif
#if ORVALE_GMIME
#include "command/exchange/MboxFile.h"
#endif
#include "command/html/HtmlDocument.h"
#include "command/json/JsonDocument.h"

namespace orvale {
namespace {

// A format whose library this build goes without is told all the same.
[[maybe_unused]] constexpr OwnFormat kAbsentIcs{.open = nullptr, .create = nullptr, .claims = &ClaimsIcs};
[[maybe_unused]] constexpr OwnFormat kAbsentMbox{.open = nullptr, .create = nullptr, .claims = &ClaimsMbox};

// The command's own formats, in the order in which they are asked whether a file is theirs.
constexpr FormatRow kOwnFormats[] = {
    {.name = "json", .extension = ".json", .profile = ProfileShape::kAny, .own = &kJsonFormat},
    {.name = "vcf", .kind = Kind::kContacts, .extension = ".vcf", .own = &kVcfFormat},
#if ORVALE_ICAL
    {.name = "ics", .kind = Kind::kCalendar, .extension = ".ics", .own = &kIcsFormat},
#else
    {.name = "ics",
     .kind = Kind::kCalendar,
     .extension = ".ics",
     .writes = false,
     .own = &kAbsentIcs,
     .lacks = "libical"},
#endif
#if ORVALE_GMIME
    {.name = "mbox", .kind = Kind::kEmail, .extension = ".mbox", .own = &kMboxFormat},
#else
    {.name = "mbox",
     .kind = Kind::kEmail,
     .extension = ".mbox",
     .writes = false,
     .own = &kAbsentMbox,
     .lacks = "GMime"},
#endif
    {.name = "html", .extension = ".html", .profile = ProfileShape::kAny, .own = &kHtmlFormat},
};

const std::vector<FormatRow>& Table() {
    static const std::vector<FormatRow> table = [] {
        std::vector<FormatRow> rows;
        for (const FormatInfo& info : AllFormats())
            rows.push_back({.name = info.name,
                            .kind = info.kind,
                            .extension = info.extension,
                            .type = info.format,
                            .writes = info.writes,
                            .endRule = info.endRule,
                            .profile = info.profile,
                            .limit = info.limit});
        rows.insert(rows.end(), std::begin(kOwnFormats), std::end(kOwnFormats));
        return rows;
    }();
    return table;
}

const FormatRow* RowOf(std::string_view name) {
    for (const FormatRow& row : Table())
        if (row.name == name) return &row;
    return nullptr;
}

std::string WhyNot(const FormatRow& format, const char* otherwise) {
    const std::string name = "the format " + std::string(format.name);
    return format.lacks.empty() ? name + otherwise
                                : name + " needs " + std::string(format.lacks) + ", which this build goes without";
}

std::string ExtensionOf(const std::filesystem::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return extension;
}

}  // namespace

std::span<const FormatRow> FormatTable() {
    return Table();
}

std::string WhyNotRead(const FormatRow& format) {
    return WhyNot(format, " is only written, never read");
}

std::string WhyNotWritten(const FormatRow& format) {
    return WhyNot(format, " is only read, never written");
}

const FormatRow& FormatOfName(std::string_view name) {
    if (const FormatRow* row = RowOf(name)) return *row;
    const std::string extension = ExtensionOf("x." + std::string(name));
    std::vector<std::string_view> names;
    std::string ofExtension;
    for (const FormatRow& row : Table()) {
        names.push_back(row.name);
        if (row.extension == extension) ofExtension += (ofExtension.empty() ? "" : ", ") + std::string(row.name);
    }
    std::string reason = "unknown format '" + Quote(name) + "'";
    const std::string_view near = NearestWord(name, names);
    if (!ofExtension.empty())
        reason += "; " + extension + " files are of " + ofExtension;
    else if (!near.empty())
        reason += "; is '" + std::string(near) + "' meant?";
    FailUsage(reason + " ('orvale formats' lists them)");
}

const FormatRow* DetectFormat(const std::filesystem::path& path) {
    const std::optional<std::string> head = ReadHead(path);
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(path, error);
    if (!head || error) FailFile(path.string(), "", "can't be read");
    const FormatInfo* const info = DetectByContent(*head, size);
    const FormatRow* const found = info != nullptr ? RowOf(info->name) : nullptr;
    for (const FormatRow& row : kOwnFormats)
        if (row.own->claims(path, *head, found)) return RowOf(row.name);
    return found != nullptr ? found : FormatOfExtension(path, std::nullopt);
}

const FormatRow* FormatOfFolders() {
    for (const FormatRow& row : Table())
        if (row.endRule == EndRule::kOneRecord) return &row;
    return nullptr;
}

const FormatRow* FormatOfExtension(const std::filesystem::path& path, std::optional<Kind> kind) {
    const std::string extension = ExtensionOf(path);
    const FormatRow* first = nullptr;
    bool ofOneKind = true;
    for (const FormatRow& row : Table()) {
        if (row.extension != extension) continue;
        if (kind && row.kind == kind) return &row;
        if (first == nullptr) first = &row;
        ofOneKind = ofOneKind && row.kind == first->kind;
    }
    return ofOneKind ? first : nullptr;
}

bool IsKnownExtension(const std::filesystem::path& path) {
    const std::string extension = ExtensionOf(path);
    return std::any_of(Table().begin(), Table().end(),
                       [&](const FormatRow& row) { return row.extension == extension; });
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
