#include "xml/PBXMLFile.h"

#include "frame/RecordLog.h"
#include "platform/Format.h"
#include "xml/CommentTable.h"

using orvale::AddElement;
using orvale::AddElements;
using orvale::AddIndent;
using orvale::AddParent;
using orvale::Column;
using orvale::CommentTable;
using orvale::Element;
using orvale::ForEachChild;
using orvale::Operation;
using orvale::PhonebookLookup;
using orvale::Repeated;
using orvale::Require;
using orvale::RequireNode;
using orvale::TakeElements;
using orvale::ToText;

namespace {

// ---- the document

constexpr orvale::SuiteNames kNames = {
    .root = u"phonebook", .identifier = u"suite-phonebook", .entries = u"contactentries", .entry = u"contact"};

constexpr Element<CPhonebookProfile> kProfile[] = {
    {u"config", &CPhonebookProfile::config},
    {u"handset", &CPhonebookProfile::handset},
    {u"dllname", &CPhonebookProfile::dllname},
};

constexpr Element<CPhonebookProfile> kSpeedDial[] = {
    {u"label", &CPhonebookProfile::speedDialLabel},
    {u"flag", &CPhonebookProfile::speedDialFlag},
    {u"min", &CPhonebookProfile::speedDialMin},
    {u"max", &CPhonebookProfile::speedDialMax},
    {u"assignablephonetypes", &CPhonebookProfile::assignablePhoneTypes},
    {u"unassignableid", &CPhonebookProfile::unassignableIds},
};

constexpr Element<CPhonebookDevice> kDevice[] = {
    {u"id", &CPhonebookDevice::id},
    {u"name", &CPhonebookDevice::name},
    {u"config", &CPhonebookDevice::config},
    {u"typespercontact", &CPhonebookDevice::typespercontact},
    {u"typecount", &CPhonebookDevice::typecount},
    {u"namecount", &CPhonebookDevice::namecount},
};

constexpr Column<CPhonebookDevice> kType[] = {
    {u"id", &CPhonebookDevice::typeIds},
    {u"label", &CPhonebookDevice::typeLabels},
    {u"icon", &CPhonebookDevice::typeIcons},
    {u"length", &CPhonebookDevice::typeLengths},
};

constexpr Element<CPhonebookDevice> kMemoryLocation[] = {
    {u"label", &CPhonebookDevice::memoryLocationLabel},
    {u"flag", &CPhonebookDevice::memoryLocationFlag},
    {u"min", &CPhonebookDevice::memoryLocationMin},
    {u"max", &CPhonebookDevice::memoryLocationMax},
    {u"unassignable", &CPhonebookDevice::memoryLocationUnassignable},
};

// The only names with a capital.
constexpr Element<CPhonebookDevice> kGroupSet[] = {
    {u"Name", &CPhonebookDevice::groupSetName},
    {u"Flag", &CPhonebookDevice::groupSetFlag},
};

constexpr Column<CPhonebookDevice> kGroup[] = {
    {u"id", &CPhonebookDevice::groupIds},
    {u"label", &CPhonebookDevice::groupLabels},
};

std::u16string CodeOf(std::int32_t index) {
    return orvale::Format(u"C%02d", index);
}

// With commas between, of which a reader takes the first alone.
std::u16string GroupIds(const CContactField& field) {
    std::u16string ids;
    for (const auto& group : field.groups) {
        if (!ids.empty()) ids += u',';
        ids += ToText(group.key);
    }
    return ids;
}

CommentTable SpeedDialComments() {
    return CommentTable()
        .Line(u"The value of flag node can be one of the following flags:")
        .NamesInColumns(orvale::kSpeedDials, {u"     %-26s0x%08X   %s"});
}

CommentTable DeviceComments() {
    return CommentTable()
        .Line(u"The config node includes the flags that illustrate what type of fields the storage ")
        .Line(u"supports. The value can be one or more of the following flags:")
        .Values(orvale::kPhonebookDeviceFlags, 5, 9)
        .Line(u"Other flags may not be used.")
        .Line(u"The flag of memory Location illustrates what type of Memory Location the storage ")
        .Line(u"supports. The value can be:")
        .Values(orvale::kMemoryLocations, 5);
}

}  // namespace

CPBXMLFile::CPBXMLFile() : SuiteFile(kNames, {u"ORVALE - CPBXMLFile::Open", Operation::kBegin | Operation::kFinish}) {}

CPBXMLFile::~CPBXMLFile() {
    CPBXMLFile::Close();
}

void CPBXMLFile::Close() {
    if (HasDocument()) {
        lookup_ = {};
        contact_.Clear();
        profile_.Clear();
        SaveDocument();
    }
    orvale::LogText(u"ORVALE - CPBXMLFile::Close : Begin/Finish\r\n");
}

void CPBXMLFile::SetProfile(const void* profile) {
    if (!HasDocument() || profile == nullptr) return;
    orvale::LogFormat(u"ORVALE - CPBXMLFile::SetProfile : Profile[0x%08X]\r\n", profile);
    Contained([&] {
        lookup_ = {};
        profile_.CopyFrom(*static_cast<const CPhonebookProfile*>(profile));
        lookup_ = PhonebookLookup(profile_);
    });
}

// ---- reading

std::int32_t CPBXMLFile::ReadFileHeader() {
    Operation operation(*this, u"ORVALE - CPBXMLFile::ReadFileHeader", Operation::kBegin | Operation::kFinish);
    return operation.Run([&] {
        Require(HasDocument());
        lookup_ = {};
        profile_.Clear();
        Require(ReadXMLProfile(FindProfile(operation)) != 0);
        lookup_ = PhonebookLookup(profile_);
        FindEntries();
    });
}

std::int32_t CPBXMLFile::ReadXMLProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CPBXMLFile::ReadXMLProfile").Run([&] {
        TakeElements(Document(), node, kProfile, profile_, [&](NodeHandle child) {
            if (Document().HasName(child, u"speeddial")) {
                ReadXMLSpeedDial(child);
            } else if (Document().HasName(child, u"device")) {
                auto device = std::make_unique<CPhonebookDevice>();
                ReadXMLDevice(child, *device);
                profile_.devices.push_back(std::move(device));
            }
        });
    });
}

// Also where the profile's config says that there is none.
void CPBXMLFile::ReadXMLSpeedDial(NodeHandle node) {
    TakeElements(Document(), node, kSpeedDial, profile_);
}

// What stands in a set of its own is read by the device's config, which may stand behind it.
void CPBXMLFile::ReadXMLDevice(NodeHandle node, CPhonebookDevice& device) {
    TakeElements(Document(), node, kDevice, device);
    ReadXMLTypeSet(node, device);
    if ((device.config & PBDV_HAS_MEMORYLOCATION) != 0) ReadXMLMemoryLocation(node, device);
    if ((device.config & PBDV_HAS_GROUP) != 0) ReadXMLGroupSet(node, device);
}

// The place of a code element, not its name, makes the code: each child counts, whatever it is.
void CPBXMLFile::ReadXMLTypeSet(NodeHandle node, CPhonebookDevice& device) {
    const NodeHandle typeSet = Document().FindChild(u"typeset", node);
    if (!typeSet) return;
    ForEachChild(Document(), typeSet,
                 [&](NodeHandle child) { TakeEntry(Document(), child, kType, device, Repeated::kLast); });
}

void CPBXMLFile::ReadXMLMemoryLocation(NodeHandle node, CPhonebookDevice& device) {
    const NodeHandle location = Document().FindChild(u"memorylocation", node);
    if (location) TakeElements(Document(), location, kMemoryLocation, device);
}

void CPBXMLFile::ReadXMLGroupSet(NodeHandle node, CPhonebookDevice& device) {
    const NodeHandle groupSet = Document().FindChild(u"groupset", node);
    if (!groupSet) return;
    TakeElements(Document(), groupSet, kGroupSet, device, [&](NodeHandle child) {
        if (Document().HasName(child, u"group")) TakeEntry(Document(), child, kGroup, device, Repeated::kLast);
    });
}

std::int32_t CPBXMLFile::Read(void** record) {
    return Operation(*this, u"ORVALE - CPBXMLFile::Read").Run([&] {
        Require(HasDocument() && Entries() && record != nullptr);
        *record = &contact_;
        contact_.Clear();
        ReadXMLContact(contact_, NextEntry());
        orvale::LogContact(&contact_);
    });
}

void CPBXMLFile::ReadXMLContact(CContactItem& contact, NodeHandle node) {
    const NodeHandle storage = RequireNode(Document().FindChild(u"device", RequireNode(node)));
    contact.Storage = orvale::ToNumber(Document().GetText(storage));
    const auto* const device = lookup_.FindDevice(contact.Storage);
    if (device == nullptr) return;
    ReadFields(contact, node, *device);
    auto* const name = const_cast<CContactField*>(contact.GetNameField());
    if (device->HasGroups() && name != nullptr) ReadGroups(*name, node, *device);
}

// Comments, `device`, `group` and codes that the device doesn't know are no fields.
void CPBXMLFile::ReadFields(CContactItem& contact, NodeHandle node, const PhonebookLookup::Device& device) {
    ForEachChild(Document(), node, [&](NodeHandle child) {
        const std::int32_t type = device.GetTypeByCode(Document().GetName(child));
        if (type == -1) return;
        auto field = std::make_unique<CContactField>();
        field->Type = type;
        field->Data = Document().GetText(child);
        contact.fields.push_back(std::move(field));
    });
}

void CPBXMLFile::ReadGroups(CContactField& name, NodeHandle node, const PhonebookLookup::Device& device) {
    ForEachChild(Document(), node, [&](NodeHandle child) {
        if (!Document().HasName(child, u"group")) return;
        const std::int32_t group = orvale::ToNumber(Document().GetText(child));
        name.SetGroup(group, device.GetGroupLabel(group));
    });
}

// ---- writing

std::int32_t CPBXMLFile::WriteFileHeader() {
    Operation operation(*this, u"ORVALE - CPBXMLFile::WriteFileHeader", Operation::kBegin | Operation::kFinish);
    return operation.Run([&] {
        Require(HasDocument());
        const NodeHandle root = StartDocument(operation);
        WriteCommentTable(Document(), orvale::PhoneConfigComments(orvale::kPhonebookFlags), root, 0);
        const NodeHandle profile = RequireNode(AddElement(Document(), root, u"profile", 1));
        AddElements(Document(), profile, kProfile, profile_, 2);
        if ((profile_.config & PBMD_HAS_SPEEDDIAL) != 0) WriteXMLSpeedDial(profile);
        WriteCommentTable(Document(), DeviceComments(), profile, 2);
        for (const auto& device : profile_.devices)
            if (device) WriteXMLDevice(profile, *device);
        AddIndent(Document(), profile, 1);
        StartEntries(root);
    });
}

void CPBXMLFile::WriteXMLSpeedDial(NodeHandle profile) {
    Contained([&] {
        WriteCommentTable(Document(), SpeedDialComments(), profile, 2);
        AddParent(Document(), profile, u"speeddial", 2, kSpeedDial, profile_);
    });
}

void CPBXMLFile::WriteXMLDevice(NodeHandle profile, const CPhonebookDevice& device) {
    Contained([&] {
        const NodeHandle node = AddElement(Document(), profile, u"device", 2);
        AddElements(Document(), node, kDevice, device, 3);
        WriteXMLTypeSet(node, device);
        if ((device.config & PBDV_HAS_MEMORYLOCATION) != 0) WriteXMLMemoryLocation(node, device);
        if ((device.config & PBDV_HAS_GROUP) != 0) WriteXMLGroupSet(node, device);
        AddIndent(Document(), node, 2);
    });
}

void CPBXMLFile::WriteXMLTypeSet(NodeHandle node, const CPhonebookDevice& device) {
    Contained([&] {
        const NodeHandle typeSet = AddElement(Document(), node, u"typeset", 3);
        for (std::size_t i = 0; i < device.typeIds.size(); ++i) {
            const std::u16string code = CodeOf(static_cast<std::int32_t>(i));
            AddParent(Document(), typeSet, code, 4, kType, device, i);
        }
        AddIndent(Document(), typeSet, 3);
    });
}

void CPBXMLFile::WriteXMLMemoryLocation(NodeHandle node, const CPhonebookDevice& device) {
    Contained([&] { AddParent(Document(), node, u"memorylocation", 3, kMemoryLocation, device); });
}

void CPBXMLFile::WriteXMLGroupSet(NodeHandle node, const CPhonebookDevice& device) {
    Contained([&] {
        const NodeHandle groupSet = AddElement(Document(), node, u"groupset", 3);
        AddElements(Document(), groupSet, kGroupSet, device, 4);
        for (std::size_t i = 0; i < device.groupIds.size(); ++i)
            AddParent(Document(), groupSet, u"group", 4, kGroup, device, i);
        AddIndent(Document(), groupSet, 3);
    });
}

std::int32_t CPBXMLFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CPBXMLFile::Write").Run([&] {
        Require(HasDocument() && record != nullptr);
        const auto& contact = *static_cast<const CContactItem*>(record);
        orvale::LogContact(&contact);
        RequireNode(Entries());
        WriteXMLContact(contact);
    });
}

void CPBXMLFile::WriteXMLContact(const CContactItem& contact) {
    const NodeHandle node = RequireNode(StartEntry());
    AddElement(Document(), node, u"device", 3, ToText(contact.Storage));
    const auto* const device = lookup_.FindDevice(contact.Storage);
    const CContactField* const name = contact.GetNameField();
    if (device != nullptr && device->HasGroups() && name != nullptr)
        AddElement(Document(), node, u"group", 3, GroupIds(*name));
    // A field whose type the device doesn't list goes out under "C-1", which no reader takes for a field.
    for (const auto& field : contact.fields) {
        if (!field) continue;
        const std::int32_t index = device != nullptr ? device->GetCodeIndex(field->Type) : -1;
        AddElement(Document(), node, CodeOf(index), 3, field->Data);
    }
    EndEntry(node);
}
