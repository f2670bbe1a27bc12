#include "text/VCardFile.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "frame/Operation.h"
#include "frame/RecordLog.h"
#include "platform/Format.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "records/QuotedPrintable.h"
#include "records/VCardKeys.h"

using orvale::AddProperty;
using orvale::EqualsNoCase;
using orvale::Operation;
using orvale::Require;
using orvale::TakeToken;
using orvale::Trim;

namespace {

constexpr std::size_t kLongestLine = 2048;       // bytes, with the line end
constexpr std::size_t kLongestKept = 64 * 1024;  // units of a card, whose memory the next one gets
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kCardBegin = u"BEGIN:VCARD";
constexpr std::u16string_view kVersion = u"VERSION:2.1";
constexpr std::u16string_view kCardEnd = u"END:VCARD";

/// One of the three addresses: the ids of the seven parts that a vCard has for each. 0 where the phone's contact has no
/// field for a part.
struct Address {
    std::int32_t key;       // of the property table
    std::int32_t whole;     // the address in one piece
    std::int32_t extended;  // the second part; without a field of its own it stands before the street, a blank between
    std::int32_t street;
    std::int32_t city;
    std::int32_t region;
    std::int32_t region2;  // the same text again; wins over `region` when writing
    std::int32_t postcode;
    std::int32_t country;
};

constexpr Address kAddresses[] = {
    {orvale::kVCardWorkAddress, CF_ADR_WORK, CF_ADR_WORK_EXTENDED, CF_ADR_WORK_STREET, CF_ADR_WORK_CITY,
     CF_ADR_WORK_REGION, CF_ADR_WORK_REGION_2, CF_ADR_WORK_POSTCODE, CF_ADR_WORK_COUNTRY},
    {orvale::kVCardHomeAddress, CF_ADR_HOME, 0, CF_ADR_HOME_STREET, CF_ADR_HOME_CITY, CF_ADR_HOME_REGION,
     CF_ADR_HOME_REGION_2, CF_ADR_HOME_POSTCODE, CF_ADR_HOME_COUNTRY},
    {orvale::kVCardPostalAddress, CF_ADR_POSTAL, 0, CF_ADR_POSTAL_STREET, CF_ADR_POSTAL_CITY, CF_ADR_POSTAL_REGION,
     CF_ADR_POSTAL_REGION_2, CF_ADR_POSTAL_POSTCODE, CF_ADR_POSTAL_COUNTRY},
};

const Address* FindAddress(std::int32_t id, std::int32_t Address::*member) {
    const auto* const found = std::find_if(std::begin(kAddresses), std::end(kAddresses),
                                           [&](const Address& address) { return address.*member == id; });
    return found != std::end(kAddresses) ? found : nullptr;
}

std::u16string WithoutTrailingSemicolons(std::u16string text) {
    text.resize(text.find_last_not_of(u';') + 1);  // npos + 1 is 0
    return text;
}

}  // namespace

CVCardFile::CVCardFile() : CFileObject(210, u"ORVALE - CVCardFile::Open") {}

CVCardFile::~CVCardFile() {
    CVCardFile::Close();
}

void CVCardFile::Close() {
    contact_.Clear();
    card_.Release();
    orvale::LogText(u"ORVALE - CVCardFile::Close : Begin/Finish\r\n");
    CloseStream();
}

std::int32_t CVCardFile::Verify() {
    const Operation operation(*this, u"ORVALE - CVCardFile::Verify", Operation::kBegin | Operation::kFinish);
    if (IsOpened()) return VERIFY_OK;
    orvale::LogText(u"Orvale - CVCardFile::Verify : Not opened\r\n");
    return VERIFY_NOT_OPENED;
}

// ---- reading

std::int32_t CVCardFile::Read(void** record) {
    Operation operation(*this, u"ORVALE - CVCardFile::Read");
    bool gotCard = false;
    const std::int32_t ready = operation.Run([&] {
        Require(IsOpened() && record != nullptr);
        *record = &contact_;
        stock_.Clear(contact_);
        gotCard = ReadCard(card_) != 0 && ParseCard(card_) != 0 && BuildContact(card_) != 0;
        if (card_.units.size() > kLongestKept) card_.Release();
        // Running out of cards is the common end of a file: its only line in the log is Begin.
        if (gotCard)
            orvale::LogContact(&contact_);
        else
            operation.Silence();
    });
    return ready != 0 && gotCard;
}

std::int32_t CVCardFile::ReadString(std::u16string* text) {
    if (text == nullptr || !IsOpened()) return 0;
    std::string_view line;
    if (orvale::ReadLine(*this, kLongestLine, lineBytes_, line) != orvale::LineResult::kLine) return 0;
    Converter().AssignWide(line, *text);
    return 1;
}

// The text of the next line, trimmed, in the room behind the card's lines.
bool CVCardFile::ReadLineInto(CardText& card, std::u16string_view& line) {
    std::string_view bytes;
    if (orvale::ReadLine(*this, kLongestLine, lineBytes_, bytes) != orvale::LineResult::kLine) return false;
    const std::size_t end = Converter().PutWide(bytes, card.units, card.length);
    line = Trim({card.units.data() + card.length, end - card.length});
    return true;
}

std::int32_t CVCardFile::ReadCard(CardText& card) try {
    card.length = 0;
    card.starts.clear();
    std::u16string_view line;
    for (const std::u16string_view head : {kCardBegin, kVersion}) {
        do {
            if (!ReadLineInto(card, line)) return 0;
        } while (!EqualsNoCase(line, head));
    }
    for (;;) {
        if (!ReadLineInto(card, line)) return 0;
        if (EqualsNoCase(line, kCardEnd)) return 1;
        const std::size_t colon = orvale::FindUnit(line, u':');
        if (card.starts.empty() || colon != std::u16string_view::npos) card.starts.push_back({card.length, colon});
        char16_t* const place = card.units.data() + card.length;
        if (line.data() != place) std::copy(line.begin(), line.end(), place);  // what was trimmed at its front goes
        card.length += line.size();
    }
} catch (const std::exception&) {
    return 0;
}

std::int32_t CVCardFile::ParseCard(const CardText& card) try {
    Counters counters;
    for (std::size_t i = 0; i < card.starts.size(); ++i) {
        const std::u16string_view line = card.Line(i);
        if (ParseProperty(line, card.starts[i].keyUnits, counters) == 0 && !contact_.fields.empty())
            contact_.fields.back()->Data += line;
    }
    return 1;
} catch (const std::exception&) {
    return 0;
}

std::int32_t CVCardFile::ParseProperty(std::u16string_view line, std::size_t keyUnits, Counters& counters) {
    const std::u16string_view key = Trim(line.substr(0, keyUnits));
    std::u16string_view rest =
        line.substr(std::min(line.size(), keyUnits == std::u16string_view::npos ? keyUnits : keyUnits + 1));
    const std::int32_t id = key.empty() ? orvale::PROPERTY_UNKNOWN : orvale::GetPropertyId(key);
    const auto addPart = [&](std::int32_t partId) { AddValue(TakeToken(rest, u";"), partId); };

    if (id == orvale::PROPERTY_UNKNOWN) return 0;
    if (id == orvale::PROPERTY_IGNORED) return 1;
    if (id == orvale::kVCardName) {
        for (const std::int32_t part : {CF_FAMILY_NAME, CF_GIVEN_NAME, CF_MIDDLE_NAME, CF_NAME_PREFIX})
            addPart(part);
        AddValue(rest, CF_NAME_SUFFIX);
    } else if (id == orvale::kVCardWorkPhone) {
        AddValue(rest, counters.workPhones++ == 0 ? CF_TEL_WORK_VOICE : CF_TEL_WORK_VOICE_2);
    } else if (id == orvale::kVCardEmail) {
        AddValue(rest, CF_EMAIL_2 + counters.emails++);
    } else if (const Address* address = FindAddress(id, &Address::key)) {
        orvale::LogFormat(u"%s********\r\n", rest);
        AddValue(rest, address->whole);
        TakeToken(rest, u";");  // the post office box, for which no phone has a field
        const std::u16string_view extended = TakeToken(rest, u";");
        std::u16string street(TakeToken(rest, u";"));
        if (address->extended != 0)
            AddValue(extended, address->extended);
        else if (!extended.empty())
            street = std::u16string(extended) + u" " + street;
        AddValue(street, address->street);
        addPart(address->city);
        const std::u16string_view region = TakeToken(rest, u";");
        AddValue(region, address->region);
        AddValue(region, address->region2);
        addPart(address->postcode);
        AddValue(rest, address->country);
    } else {
        AddValue(rest, id);
    }
    return 1;
}

void CVCardFile::AddValue(std::u16string_view value, std::int32_t type) {
    if (value.empty()) return;
    contact_.fields.push_back(stock_.Take());
    CContactField& field = *contact_.fields.back();
    field.Type = type;
    field.Data.append(value);  // it is empty, and appending costs less than assigning
}

namespace {

// Whether a decoding could change a text that came out of a file. A page that holds all lacks nothing of it, and its
// codes start with "=": the byte is looked for, wherever in a unit it stands, for that takes many units at a time.
bool MayNeedDecoding(std::u16string_view text, const orvale::TextConverter& converter) {
    if (!converter.Page().HoldsAll()) return orvale::NeedsDecoding(text, converter);
    return std::memchr(text.data(), '=', text.size() * sizeof(char16_t)) != nullptr;
}

}  // namespace

// Every value is decoded, whatever its key says of an encoding.
std::int32_t CVCardFile::BuildContact(const CardText& card) try {
    bool named = false;
    const bool isPlain = !MayNeedDecoding(card.Lines(), Converter());
    for (const auto& field : contact_.fields) {
        if (!isPlain && MayNeedDecoding(field->Data, Converter()))
            Converter().AssignWide(orvale::QuotedPrintableBytes(field->Data, Converter()), field->Data);
        named = named || IsNameType(field->Type);
    }
    if (named) return 1;
    contact_.fields.push_back(stock_.Take());  // a contact always has a name
    contact_.fields.back()->Type = CF_FULL_NAME;
    return 1;
} catch (const std::exception&) {
    return 0;
}

// ---- writing

namespace {

// A zero ends a field's text: it must not end the card.
std::u16string_view TextOf(const CContactField& field) {
    return std::u16string_view(field.Data).substr(0, orvale::FindUnit(field.Data, u'\0'));
}

std::u16string_view GetFieldText(std::int32_t type, const CContactItem& contact) {
    std::int32_t index = 0;
    const CContactField* const field = contact.FindField(type, index);
    return field != nullptr ? TextOf(*field) : std::u16string_view();
}

bool HasField(std::int32_t type, const CContactItem& contact) {
    std::int32_t index = 0;
    return contact.FindField(type, index) != nullptr;
}

// The full name and what goes into the lines of name and addresses: such a field has no line of its own.
bool IsComposed(std::int32_t type) {
    switch (type) {
        case CF_FULL_NAME:
        case CF_GIVEN_NAME:
        case CF_FAMILY_NAME:
        case CF_MIDDLE_NAME:
        case CF_NAME_PREFIX:
        case CF_NAME_SUFFIX:
            return true;
        default:
            break;
    }
    return std::any_of(std::begin(kAddresses), std::end(kAddresses), [&](const Address& a) {
        return type != 0 && (type == a.extended || type == a.street || type == a.city || type == a.region ||
                             type == a.region2 || type == a.postcode || type == a.country);
    });
}

std::u16string ComposeAddress(const Address& address, const CContactItem& contact) {
    const auto text = [&](std::int32_t type) {
        return type != 0 ? GetFieldText(type, contact) : std::u16string_view();
    };
    const std::int32_t region = HasField(address.region2, contact) ? address.region2 : address.region;
    std::u16string value;
    for (const std::int32_t type :
         {address.extended, address.street, address.city, region, address.postcode, address.country})
        value.append(u";").append(text(type));
    return WithoutTrailingSemicolons(value);
}

// The ids whose values go out in quoted-printable where that changes them.
bool IsQuotedPrintable(std::int32_t id) {
    return id == CF_NOTE || id == CF_ADR_GENERAL || id == CF_LABEL_WORK || id == CF_LABEL_HOME;
}

// The local time, for all that it ends in "Z".
std::u16string GetRevisionStamp() {
    const orvale::CalendarFields now = orvale::LocalNow();
    return orvale::Format(u"%.2d%.2d%.2dT%.2d%.2d%.2dZ", now.year, now.month, now.day, now.hour, now.minute,
                          now.second);
}

// The address in one piece goes into the street, the third part.
void PrefixAddress(std::size_t index, VCardPropertyList& list) {
    list.at(index).value.insert(0, u";;");
}

}  // namespace

std::int32_t CVCardFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CVCardFile::Write").Run([&] {
        Require(IsOpened());
        const auto* const contact = static_cast<const CContactItem*>(record);
        orvale::LogContact(contact);
        VCardPropertyList list;
        std::u16string text;
        Require(MapContact(contact, list) != 0 && ComposeCard(text, list) != 0 && WriteCard(text) != 0);
    });
}

std::int32_t CVCardFile::MapContact(const CContactItem* contact, VCardPropertyList& list) {
    if (contact == nullptr) return 0;
    std::u16string given(GetFieldText(CF_GIVEN_NAME, *contact));
    const std::u16string family(GetFieldText(CF_FAMILY_NAME, *contact));
    std::u16string full(GetFieldText(CF_FULL_NAME, *contact));
    if (given.empty() && family.empty()) given = full;

    std::u16string name = family + u";" + given;
    for (const std::int32_t part : {CF_MIDDLE_NAME, CF_NAME_PREFIX, CF_NAME_SUFFIX})
        name.append(u";").append(GetFieldText(part, *contact));
    name = WithoutTrailingSemicolons(name);
    AddProperty(name.empty() ? u";" : std::u16string_view(name), orvale::kVCardName, list);
    if (full.empty()) full = orvale::Format(u"%s %s", given, family);
    AddProperty(full, CF_FULL_NAME, list);

    bool hasEmail = false;
    constexpr auto kNone = static_cast<std::size_t>(-1);
    std::size_t wholeAddress[std::size(kAddresses)];
    std::fill(std::begin(wholeAddress), std::end(wholeAddress), kNone);
    for (const auto& field : contact->fields) {
        if (!field || IsComposed(field->Type)) continue;
        const std::int32_t type = field->Type;
        const std::u16string_view data = TextOf(*field);
        if (type == CF_TEL_WORK_VOICE || type == CF_TEL_WORK_VOICE_2) {
            AddProperty(data, orvale::kVCardWorkPhone, list);
        } else if (type == CF_EMAIL_PREF || type == CF_EMAIL_2 || type == CF_EMAIL_3) {
            AddProperty(data, hasEmail ? orvale::kVCardEmail : CF_EMAIL_PREF, list);
            hasEmail = true;
        } else if (const Address* address = FindAddress(type, &Address::whole)) {
            const std::size_t before = list.size();
            AddProperty(data, address->key, list);
            if (list.size() > before) wholeAddress[address - kAddresses] = before;
        } else {
            AddProperty(data, type, list);
        }
    }
    for (std::size_t i = 0; i < std::size(kAddresses); ++i) {
        const Address& address = kAddresses[i];
        if (!HasField(address.whole, *contact))
            AddProperty(ComposeAddress(address, *contact), address.key, list);
        else if (wholeAddress[i] != kNone)
            PrefixAddress(wholeAddress[i], list);
    }
    return 1;
}

std::int32_t CVCardFile::ComposeCard(std::u16string& text, const VCardPropertyList& list) {
    const auto line = [&](std::u16string_view key, std::u16string_view value) {
        text.append(key).append(u":").append(value).append(kLineEnd);
    };
    text.assign(kCardBegin).append(kLineEnd).append(kVersion).append(kLineEnd);
    for (const VCardProperty& property : list) {
        const std::u16string_view key = orvale::GetPropertyKey(property.id);
        if (IsQuotedPrintable(property.id)) {
            const std::u16string encoded = EncodeQuotedPrintable(property.value.c_str());
            line(encoded != property.value ? orvale::GetQuotedPrintableKey(property.id) : key, encoded);
        } else if (!EqualsNoCase(key, u"NONE")) {
            line(key, property.value);
        }
    }
    line(u"REV", GetRevisionStamp());
    text.append(kCardEnd).append(kLineEnd).append(kLineEnd);
    return 1;
}

std::int32_t CVCardFile::WriteCard(std::u16string_view text) {
    const std::string bytes = ToNarrow(text);
    Require(bytes.size() <= UINT32_MAX, "more than one write can take");
    CFile::Write(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    return 1;
}
