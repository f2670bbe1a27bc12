#include "command/exchange/VcfReader.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "command/console/CommandError.h"
#include "command/exchange/VcfText.h"
#include "command/exchange/VcfValues.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kMostNotes = 100;  // kinds of them
constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);
constexpr std::string_view kFurther = "further properties that a contact has no place for";

template <class Number>
std::optional<Number> NumberOf(std::string_view text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return upper;
}

bool IsWanted(std::string_view front) {
    VcfProperty property;
    return ParseVcfProperty(front, property) && !property.rows.empty();
}

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    return text;
}

bool IsCardFrame(const VcfProperty& property, std::string_view name) {
    return VcfSameName(property.name, name) && VcfSameName(WithoutBlanks(property.value), "VCARD");
}

// Whether a value is the first line of a card within the card.
bool BeginsCard(std::string_view value) {
    return VcfSameName(WithoutBlanks(value), "BEGIN:VCARD");
}

std::u16string Join(std::span<const std::u16string> parts, std::u16string_view separator) {
    std::u16string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text.append(i == 0 ? u"" : separator).append(parts[i]);
    return text;
}

}  // namespace

VcfReader::VcfReader(const std::filesystem::path& path, const std::string& shownName)
    : lines_(path, shownName, &IsWanted), decoder_(lines_.IsUnicode()) {}

bool VcfReader::Next(CContactItem& record) {
    if (brokenAt_ || !FindCard()) return false;
    if (TakeCard(record)) return true;
    brokenAt_ = wholeEnd_;
    return false;
}

bool VcfReader::FindCard() {
    VcfProperty property;
    while (!hasBegun_ && lines_.Next(line_)) {
        hasBegun_ = heads_.Parse(line_.text, property) && IsCardFrame(property, "BEGIN");
        if (!hasBegun_) AddNote("lines outside of cards", line_.number);
    }
    return std::exchange(hasBegun_, false);
}

// False where the file ends within the card.
bool VcfReader::TakeCard(CContactItem& record) {
    contact_ = &record;
    version_.reset();
    early_.clear();
    ids_.Clear();
    hasName_ = false;
    addresses_.clear();
    groups_.clear();
    extras_.clear();
    cardNotes_.clear();
    afterAgent_ = false;
    depth_ = 0;
    VcfProperty property;
    while (lines_.Next(line_)) {
        if (version_) UnfoldVcfLine(line_.text, *version_);
        bool ends = false;
        if (!heads_.Parse(line_.text, property)) {
            if (depth_ == 0) AddNote("lines that are no property", line_.number);
        } else if (TakeFrame(property, ends)) {
            if (ends) return true;
        } else if (depth_ == 0) {
            const bool isAgent = VcfSameName(property.name, "AGENT");
            afterAgent_ = isAgent && property.value.empty();
            if (isAgent && BeginsCard(property.value)) {  // on the same line
                ++depth_;
                AddNote("AGENT", line_.number);
                continue;
            }
            if (!version_ && VcfSameName(property.name, "VERSION"))
                TakeVersion(property.value);
            else if (!version_ && !property.rows.empty())
                early_.push_back(std::move(line_));  // how it is read, the version tells
            else
                TakeProperty(property, line_.number);
        }
    }
    return false;
}

// Whether the line begins or ends a card. A card begins within another only behind AGENT; elsewhere the one before it
// lacks its end.
bool VcfReader::TakeFrame(const VcfProperty& property, bool& ends) {
    const bool begins = IsCardFrame(property, "BEGIN");
    if (!begins && !IsCardFrame(property, "END")) return false;
    if (begins && (depth_ != 0 || afterAgent_)) {
        if (depth_++ == 0) AddNote("AGENT", line_.number);
    } else if (!begins && depth_ != 0) {
        --depth_;
    } else {
        ends = true;
        hasBegun_ = begins;
        if (begins) AddNote("ends of cards", line_.number);
        wholeEnd_ = begins ? line_.start : lines_.End();
        FinishCard();
    }
    return true;
}

void VcfReader::TakeVersion(std::string_view value) {
    const std::size_t first = std::min(value.find_first_not_of(" \t"), value.size());
    value.remove_prefix(first);
    version_ = value.starts_with('2') ? VcfVersion::k21 : value.starts_with('4') ? VcfVersion::k40 : VcfVersion::k30;
    decoder_.SetVersion(*version_);
    VcfProperty property;
    for (VcfLine& line : early_) {
        UnfoldVcfLine(line.text, *version_);
        if (ParseVcfProperty(line.text, property)) TakeProperty(property, line.number);
    }
    early_.clear();
}

void VcfReader::TakeProperty(const VcfProperty& property, std::size_t line) {
    if (property.rows.empty()) {
        if (!property.value.empty()) AddNote(Quote(UpperCase(property.name)), line);
        return;
    }
    const std::size_t badBytes = decoder_.BadBytes();
    const std::size_t unknownCharsets = decoder_.UnknownCharsets();
    const VcfKind kind = property.kind;
    switch (property.rows.front().shape) {
        case VcfShape::kSilent:
            break;
        case VcfShape::kParts:
            if (VcfSameName(property.name, "N"))
                TakeName(property, kind, line);
            else if (VcfSameName(property.name, "ADR"))
                TakeAddress(property, kind);
            else
                TakeOrganisation(property, kind);
            break;
        case VcfShape::kCategories:
            TakeCategories(property);
            break;
        case VcfShape::kExtra:
            TakeExtra(property, false, line);
            break;
        case VcfShape::kGroup:
            TakeExtra(property, true, line);
            break;
        case VcfShape::kStorage:
            contact_->Storage = NumberOf<std::int32_t>(property.value).value_or(0);
            break;
        default:
            TakeValue(property, kind, line);
    }
    if (const std::size_t bad = decoder_.BadBytes() - badBytes; bad != 0)
        AddNote("bytes that are no text in their charset", line, bad);
    if (decoder_.UnknownCharsets() != unknownCharsets) AddNote("values in a charset that isn't known", line);
}

// The id that a line tells, else the next one of its kind.
std::int32_t VcfReader::IdFor(const VcfProperty& property, VcfKind kind) {
    const std::int32_t id = NumberOf<std::int32_t>(property.id).value_or(0);
    if (property.id.empty() || id == 0) return ids_.TakeNext(kind);
    ids_.Take(id);
    return id;
}

void VcfReader::TakeValue(const VcfProperty& property, VcfKind kind, std::size_t line) {
    const VcfRow& row = kind.front();
    std::u16string text;
    decoder_.Text(property, text);
    if (row.shape == VcfShape::kField) {
        if (const auto id = NumberOf<std::int32_t>(property.id))
            Add(*id, std::move(text));
        else
            AddNote(vcf::kField, line);
        return;
    }
    if (property.id == "0") return;  // it stands for others to see
    switch (row.shape) {
        case VcfShape::kPhone:
        case VcfShape::kEmail:
            if (property.id.empty()) RemoveVcfScheme(text, row.shape);
            break;
        case VcfShape::kDate:
            if (property.id.empty()) text = DayFromVcf(std::move(text));
            break;
        case VcfShape::kGender:
            text = GenderFromVcf(decoder_.Parts(property, ';', 2));
            break;
        default:
            break;
    }
    if (text.empty()) return;
    Add(IdFor(property, kind), std::move(text));
}

void VcfReader::TakeName(const VcfProperty& property, VcfKind kind, std::size_t line) {
    if (property.id == "0") return;
    if (hasName_) return AddNote("N behind the first", line);
    hasName_ = true;
    const std::span<std::u16string> parts = decoder_.Parts(property, ';', kind.size());
    for (const VcfRow& row : kind)
        if (const auto part = static_cast<std::size_t>(row.part); part < parts.size() && !parts[part].empty())
            Add(row.id, std::move(parts[part]));
}

void VcfReader::TakeAddress(const VcfProperty& property, VcfKind kind) {
    const std::span<const VcfRow> rows = property.rows;
    std::array<std::u16string, vcf::kAddressParts> parts;
    std::ranges::move(decoder_.Parts(property, ';', parts.size()), parts.begin());
    if (!property.label.empty()) {
        const VcfKind labels = VcfKindOf(VcfRowsOf("LABEL"), kind.front().types);
        Add(ids_.TakeNext(labels), DecodeVcfParameter(property.label));
    }
    const std::int32_t told = NumberOf<std::int32_t>(property.id).value_or(0);
    const bool empty = std::all_of(parts.begin(), parts.end(), [](const auto& part) { return part.empty(); });
    if (empty || property.id == "0") return;
    const auto isTold = [&](const VcfRow& row) { return row.onlyById && row.id == told; };
    const auto byId = std::find_if(rows.begin(), rows.end(), isTold);
    if (byId != rows.end() && byId->part == vcf::kWhole) return Add(told, JoinFilled(parts));

    // A second address of a kind takes the place of a postal one; any further one is no longer taken apart.
    const auto isTaken = [&](VcfKind one) {
        return std::find(addresses_.begin(), addresses_.end(), &one.front()) != addresses_.end();
    };
    if (isTaken(kind)) kind = VcfKindOf(rows, vcf::kPostal);
    if (isTaken(kind)) kind = VcfKindOf(rows, vcf::kGeneral);
    if (kind.front().part == vcf::kWhole) return Add(kind.front().id, JoinFilled(parts));
    addresses_.push_back(&kind.front());

    // What has no field of its own stands before the street.
    const std::span front(parts.begin(), vcf::kStreet + 1);
    std::u16string extended;
    if (kind.front().part == vcf::kExtended) extended.swap(parts[vcf::kExtended]);
    if (!parts[0].empty() || !parts[vcf::kExtended].empty()) parts[vcf::kStreet] = JoinFilled(front);
    parts[vcf::kExtended] = std::move(extended);
    for (const VcfRow& row : kind) {
        if (row.onlyById) continue;
        std::u16string& part = parts[static_cast<std::size_t>(row.part)];
        const bool isElsewhere = byId != rows.end() && byId->part == row.part;
        if (!part.empty()) Add(isElsewhere ? told : row.id, std::move(part));
    }
}

void VcfReader::TakeOrganisation(const VcfProperty& property, VcfKind kind) {
    const std::span<std::u16string> parts = decoder_.Parts(property, ';', kNoLimit);
    const std::int32_t told = NumberOf<std::int32_t>(property.id).value_or(0);
    const auto byId =
        std::find_if(kind.begin(), kind.end(), [&](const VcfRow& row) { return row.onlyById && row.id == told; });
    if (byId != kind.end() && byId->part == vcf::kWhole) return Add(told, Join(parts, u";"));
    if (!parts[0].empty()) Add(byId != kind.end() ? told : kind[0].id, std::move(parts[0]));
    std::u16string unit = JoinFilled(parts.subspan(1));
    if (!unit.empty()) Add(kind[1].id, std::move(unit));
}

void VcfReader::TakeCategories(const VcfProperty& property) {
    if (property.value.empty() && property.id.empty()) return;
    std::string_view told = property.id;
    for (const std::u16string& each : decoder_.Parts(property, ',', kNoLimit)) {
        const std::size_t end = std::min(told.find(','), told.size());
        const std::optional<std::int32_t> id = NumberOf<std::int32_t>(told.substr(0, end));
        told.remove_prefix(std::min(end + 1, told.size()));
        const std::u16string name(id ? std::u16string_view(each) : Trim(each));
        if (id || !name.empty()) groups_.emplace_back(id ? *id : GroupOf(name), name);
    }
}

// Groups get numbers in the order in which a file names them. A file with very many of them must not fill the memory:
// what comes late gets a number by its name alone.
std::int32_t VcfReader::GroupOf(const std::u16string& name) {
    constexpr std::size_t kMostGroups = 4096;
    const auto found = groupIds_.find(name);
    if (found != groupIds_.end()) return found->second;
    if (groupIds_.size() < kMostGroups) {
        const auto id = static_cast<std::int32_t>(groupIds_.size() + 1);
        groupIds_.emplace(name, id);
        return id;
    }
    std::uint32_t hash = 2166136261;  // FNV-1a
    for (const char16_t unit : name)
        hash = (hash ^ unit) * 16777619;
    return static_cast<std::int32_t>((hash & 0x3FFFFFFF) + kMostGroups + 1);
}

// "type;which of that type;number;text", or "type;which;group;its name".
void VcfReader::TakeExtra(const VcfProperty& property, bool isGroup, std::size_t line) {
    const std::span<std::u16string> parts = decoder_.Parts(property, ';', 4);
    const auto number = [&](std::size_t i) {
        return i < parts.size() ? NumberOf<std::int64_t>(ToUtf8(parts[i])) : std::nullopt;
    };
    if (parts.size() != 4 || !number(0) || !number(1) || !number(2)) return AddNote(UpperCase(property.name), line);
    Extra extra{static_cast<std::int32_t>(*number(0)), *number(1), static_cast<std::uint32_t>(*number(2)), parts[3],
                std::nullopt};
    if (isGroup) extra.group = static_cast<std::int32_t>(*number(2));
    extras_.push_back(std::move(extra));
}

void VcfReader::FinishCard() {
    if (!version_) TakeVersion("");
    GiveGroups();
    GiveExtras();
    contact_ = nullptr;
    for (const auto& [what, finding] : cardNotes_)
        Count(notes_, what, finding);
}

void VcfReader::GiveGroups() {
    if (groups_.empty()) return;
    if (contact_->GetNameField() == nullptr) Add(CF_FULL_NAME, {});  // somebody has to carry them
    auto* const name = const_cast<CContactField*>(contact_->GetNameField());
    for (std::size_t i = groups_.size(); i-- > 0;)  // the last first, so that they come in this order again
        name->SetGroup(groups_[i].first, std::move(groups_[i].second));
}

void VcfReader::GiveExtras() {
    if (extras_.empty()) return;
    std::map<std::int32_t, std::vector<CContactField*>> fields;
    for (const auto& field : contact_->fields)
        fields[field->Type].push_back(field.get());
    for (std::size_t i = extras_.size(); i-- > 0;) {
        Extra& extra = extras_[i];
        const auto found = fields.find(extra.type);
        const std::size_t count = found != fields.end() ? found->second.size() : 0;
        if (extra.nth < 1 || static_cast<std::uint64_t>(extra.nth) > count) continue;
        CContactField& field = *found->second[static_cast<std::size_t>(extra.nth) - 1];
        if (extra.group) {
            field.SetGroup(*extra.group, std::move(extra.text));
        } else {
            field.extraNumber = extra.number;
            field.extraText = std::move(extra.text);
        }
    }
}

void VcfReader::Add(std::int32_t type, std::u16string data) {
    contact_->fields.push_back(std::make_unique<CContactField>());
    contact_->fields.back()->Type = type;
    contact_->fields.back()->Data = std::move(data);
}

void VcfReader::AddNote(std::string_view what, std::size_t line, std::size_t count) {
    Count(contact_ != nullptr ? cardNotes_ : notes_, what, {count, line});
}

void VcfReader::Count(Findings& findings, std::string_view what, const Finding& finding) {
    auto found = findings.find(what);
    if (found == findings.end() && findings.size() >= kMostNotes) {
        what = kFurther;
        found = findings.find(what);
    }
    if (found == findings.end()) found = findings.emplace(what, Finding{0, finding.firstLine}).first;
    found->second.count += finding.count;
}

std::vector<Note> VcfReader::Notes() const {
    std::vector<Note> notes;
    for (const auto& [what, finding] : notes_)
        notes.push_back({what, finding.count, "line " + std::to_string(finding.firstLine)});
    return notes;
}

}  // namespace orvale
