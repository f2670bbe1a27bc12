#include "command/exchange/VcfWriter.h"

#include <algorithm>
#include <array>
#include <map>

#include "command/exchange/VcfText.h"
#include "command/exchange/VcfValues.h"
#include "platform/Text.h"

namespace orvale {
namespace {

constexpr std::size_t kLongestLine = 75;  // octets, without the line end

// Whether nothing of a text stands in a vCard.
bool SaysNothing(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), IsLeftOutOfVcf);
}

bool IsPartOfName(std::int32_t id) {
    const VcfRow* const row = VcfRowOfId(id, VcfVersion::k30);
    return row != nullptr && (row->property == "N" || row->property == "FN");
}

}  // namespace

void VcfWriter::Put(const CContactItem& contact) {
    Survey(contact);
    buffer_ = "BEGIN:VCARD\r\nVERSION:";
    buffer_ += Is40() ? "4.0\r\n" : "3.0\r\n";
    PutName();
    for (std::size_t place = 0; place < contact.fields.size(); ++place)
        if (contact.fields[place] && !done_[place]) PutField(place);
    PutCategories();
    PutExtras();
    if (contact.Storage != 0) {
        Begin(vcf::kStorage);
        line_ += ':' + std::to_string(contact.Storage);
        End();
    }
    buffer_ += "END:VCARD\r\n";
    out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
}

std::vector<Note> VcfWriter::Losses() const {
    if (replaced_ == 0) return {};
    return {{"halves of characters that a vCard can't tell", replaced_, ""}};
}

void VcfWriter::Survey(const CContactItem& contact) {
    contact_ = &contact;
    done_.assign(contact.fields.size(), false);
    ids_.Clear();
    hasParts_ = putParts_ = 0;
    hasDate_ = hasGender_ = hasOrganisation_ = false;
    for (const auto& field : contact.fields) {
        const VcfRow* const row = field && !SaysNothing(field->Data) ? VcfRowOfId(field->Type, version_) : nullptr;
        if (row != nullptr && row->property == "ADR" && row->part != vcf::kWhole) hasParts_ |= row->types;
    }
}

std::size_t VcfWriter::Find(std::int32_t id) const {
    const auto found = std::find_if(contact_->fields.begin(), contact_->fields.end(),
                                    [&](const auto& field) { return field && field->Type == id; });
    return found != contact_->fields.end() ? static_cast<std::size_t>(found - contact_->fields.begin()) : kNone;
}

// The first field of a type goes into a line with others, unless it is empty: such a one needs a line that tells so,
// and fields of a type keep their order.
std::size_t VcfWriter::Take(std::int32_t id) {
    const std::size_t place = Find(id);
    if (place == kNone || done_[place] || SaysNothing(Data(place))) return kNone;
    done_[place] = true;
    return place;
}

// Programs of today show a full name, which 3.0 and 4.0 demand, or the name in parts, which 3.0 demands too. What is
// there for others alone is marked.
void VcfWriter::PutName() {
    const std::size_t full = Take(CF_FULL_NAME);
    const std::u16string fullName = full != kNone ? Data(full) : ComposeFullName();
    std::array<std::size_t, 5> parts{};
    bool hasParts = false;
    const VcfKind kind = VcfRowsOf("N");
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i] = Take(kind[i].id);
        hasParts = hasParts || parts[i] != kNone;
    }
    if (hasParts || !Is40()) {
        Begin("N");
        if (!hasParts) AddId(0);
        line_ += ':';
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (i != 0) line_ += ';';
            if (parts[i] != kNone) AddText(Data(parts[i]));
            if (!hasParts && kind[i].id == CF_GIVEN_NAME) AddText(fullName);
        }
        End();
    }
    Begin("FN");
    if (full == kNone) AddId(0);
    line_ += ':';
    AddText(fullName);
    End();
}

std::u16string VcfWriter::ComposeFullName() const {
    std::u16string name;
    for (const std::int32_t id : {CF_NAME_PREFIX, CF_GIVEN_NAME, CF_MIDDLE_NAME, CF_FAMILY_NAME, CF_NAME_SUFFIX}) {
        const std::size_t place = Find(id);
        if (place == kNone || SaysNothing(Data(place))) continue;
        if (!name.empty()) name += u' ';
        name += Data(place);
    }
    for (const std::int32_t id : {CF_NAME_4, CF_NICKNAME, CF_ORG, CF_ORG_NAME, CF_EMAIL_PREF})
        if (const std::size_t place = Find(id); name.empty() && place != kNone) name = Data(place);
    for (const auto& field : contact_->fields)
        if (name.empty() && field) name = field->Data;
    return name;
}

void VcfWriter::PutField(std::size_t place) {
    const std::int32_t id = contact_->fields[place]->Type;
    const VcfRow* const row = SaysNothing(Data(place)) || IsPartOfName(id) ? nullptr : VcfRowOfId(id, version_);
    if (row == nullptr) return PutOwn(place);
    if (row->property == "ADR" && row->part == vcf::kWhole) {
        PutWholeAddress(*row, place);
    } else if (row->property == "ADR" || (row->property == "LABEL" && Is40())) {
        PutAddress(row->types);
    } else if (row->property == "ORG") {
        PutOrganisation();
    } else if (row->shape == VcfShape::kDate) {
        done_[place] = PutDate(place);
    } else if (row->shape == VcfShape::kGender) {
        done_[place] = PutGender(*row, place);
    } else {
        PutValue(*row, place);
    }
    if (!done_[place]) PutOwn(place);
}

// The id is told only where a reader would take another one, or change a value without it.
void VcfWriter::PutValue(const VcfRow& row, std::size_t place) {
    const std::int32_t id = contact_->fields[place]->Type;
    Begin(row.property);
    AddTypes(row.types);
    if (ids_.Next(VcfKindOf(row)) != id || HasVcfScheme(Data(place), row.shape)) AddId(id);
    ids_.Take(id);
    line_ += ':';
    AddText(Data(place), row.shape != VcfShape::kUri);
    End();
    done_[place] = true;
}

// What is no day that the version has a form for is text in 4.0 and has no place in 3.0.
bool VcfWriter::PutDate(std::size_t place) {
    const std::u16string& text = Data(place);
    const std::optional<std::u16string> day = DayToVcf(text, version_);
    if (hasDate_ || (!day && !Is40() && !IsDashedDay(text))) return false;
    hasDate_ = true;
    Begin("BDAY");
    if (!day) {
        if (Is40()) line_ += ";VALUE=text";
        AddId(CF_BIRTHDAY);
    }
    line_ += ':';
    AddText(day.value_or(text));
    End();
    return true;
}

bool VcfWriter::PutGender(const VcfRow& row, std::size_t place) {
    if (hasGender_) return false;
    hasGender_ = true;
    const VcfGender gender = GenderToVcf(Data(place));
    Begin(row.property);
    line_ += ':';
    AddText(gender.letter);
    if (!gender.text.empty()) line_ += ';';
    AddText(gender.text);
    End();
    return true;
}

// All parts of an address, and in 4.0 its label.
void VcfWriter::PutAddress(std::uint32_t types) {
    if ((putParts_ & types) != 0) return;
    putParts_ |= types;
    std::array<std::size_t, vcf::kAddressParts> parts{};
    parts.fill(kNone);
    std::int32_t told = 0;
    bool hasPart = false;
    for (const VcfRow& row : VcfKindOf(VcfRowsOf("ADR"), types)) {
        if (row.part == vcf::kWhole) continue;
        std::size_t& part = parts[static_cast<std::size_t>(row.part)];
        if (row.onlyById && part != kNone) continue;
        part = Take(row.id);
        hasPart = hasPart || part != kNone;
        if (row.onlyById && part != kNone) told = row.id;
    }
    const std::int32_t labelId = VcfKindOf(VcfRowsOf("LABEL"), types).front().id;
    std::size_t label = Is40() ? Find(labelId) : kNone;
    const bool hidesCode = label != kNone && Data(label).find(u'\\') != std::u16string::npos;
    label = label != kNone && !hidesCode ? Take(labelId) : kNone;
    if (!hasPart && label == kNone) return;
    Begin("ADR");
    AddTypes(types);
    if (told != 0) AddId(told);
    if (label != kNone) AddLabel(Data(label));
    for (std::size_t i = 0; i < parts.size(); ++i) {
        line_ += i == 0 ? ':' : ';';
        if (parts[i] != kNone) AddText(Data(parts[i]));
    }
    End();
}

// An address in one piece stands as the street, unless its parts are there too.
void VcfWriter::PutWholeAddress(const VcfRow& row, std::size_t place) {
    if ((hasParts_ & row.types) != 0) return;
    Begin("ADR");
    AddTypes(row.types);
    AddId(row.id);
    line_ += ":;;";
    AddText(Data(place));
    line_ += ";;;;";
    End();
    done_[place] = true;
}

// Company and department. One text with semicolons of its own goes out as it stands: that is how cards have both.
void VcfWriter::PutOrganisation() {
    if (hasOrganisation_) return;
    hasOrganisation_ = true;
    std::size_t name = Take(CF_ORG);
    const std::size_t unit = Take(CF_ORG_UNIT);
    Begin("ORG");
    const bool isWhole = name != kNone && unit == kNone && Data(name).find(u';') != std::u16string::npos;
    if (isWhole) AddId(CF_ORG);
    if (name == kNone && (name = Take(CF_ORG_NAME)) != kNone) AddId(CF_ORG_NAME);
    if (name == kNone && unit == kNone) return;
    line_ += ':';
    for (std::size_t from = 0; name != kNone;) {
        const std::size_t end = isWhole ? Data(name).find(u';', from) : std::u16string::npos;
        AddText(std::u16string_view(Data(name)).substr(from, end - from));
        if (end == std::u16string::npos) break;
        line_ += ';';
        from = end + 1;
    }
    if (unit != kNone) {
        line_ += ';';
        AddText(Data(unit));
    }
    End();
}

void VcfWriter::PutOwn(std::size_t place) {
    Begin(vcf::kField);
    AddId(contact_->fields[place]->Type);
    line_ += ':';
    AddText(Data(place));
    End();
    done_[place] = true;
}

void VcfWriter::PutCategories() {
    const CContactField* const name = contact_->GetNameField();
    if (name == nullptr || name->groups.empty()) return;
    Begin("CATEGORIES");
    std::string ids;
    for (const auto& group : name->groups)
        ids += (ids.empty() ? "" : ",") + std::to_string(group.key);
    line_.append(";").append(vcf::kIdParameter).append("=").append(ids);
    char separator = ':';
    for (const auto& group : name->groups) {
        line_ += separator;
        AddText(group.value);
        separator = ',';
    }
    End();
}

// What a field has beside its value, told by its type and which one of that type it is.
void VcfWriter::PutExtras() {
    const CContactField* const name = contact_->GetNameField();
    std::map<std::int32_t, std::size_t> count;
    for (const auto& field : contact_->fields) {
        if (!field) continue;
        const std::string which = ':' + std::to_string(field->Type) + ';' + std::to_string(++count[field->Type]) + ';';
        if (field->extraNumber != 0 || !field->extraText.empty()) {
            Begin(vcf::kExtra);
            line_ += which + std::to_string(field->extraNumber) + ';';
            AddText(field->extraText);
            End();
        }
        if (field.get() == name) continue;
        for (const auto& group : field->groups) {
            Begin(vcf::kGroup);
            line_ += which + std::to_string(group.key) + ';';
            AddText(group.value);
            End();
        }
    }
}

// ---- the parts of a line

void VcfWriter::Begin(std::string_view property) {
    line_ = property;
}

void VcfWriter::AddTypes(std::uint32_t types) {
    std::string_view before = ";TYPE=";
    for (const VcfType& type : VcfTypes()) {
        const std::string_view word = Is40() ? type.in40 : type.in30;
        if ((types & type.bit) == 0 || word.empty()) continue;
        line_.append(before).append(word);
        before = ",";
    }
    if (Is40() && (types & vcf::kPref) != 0) line_ += ";PREF=1";
}

void VcfWriter::AddId(std::int32_t id) {
    line_.append(";").append(vcf::kIdParameter).append("=").append(std::to_string(id));
}

void VcfWriter::AddLabel(std::u16string_view text) {
    line_ += ";LABEL=\"";
    AppendVcfParameter(line_, text, replaced_);
    line_ += '"';
}

void VcfWriter::AddText(std::u16string_view text, bool separatorsToo) {
    AppendVcfText(line_, text, separatorsToo, replaced_);
}

// Folds the line: a blank goes before each piece but the first, and no character is taken apart.
void VcfWriter::End() {
    std::string_view rest = line_;
    for (std::size_t most = kLongestLine; rest.size() > most; most = kLongestLine - 1) {
        std::size_t cut = most;
        while ((static_cast<unsigned char>(rest[cut]) & 0xC0) == 0x80)
            --cut;
        buffer_.append(rest.substr(0, cut)).append("\r\n ");
        rest.remove_prefix(cut);
    }
    buffer_.append(rest).append("\r\n");
}

}  // namespace orvale
