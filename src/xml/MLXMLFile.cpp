#include "xml/MLXMLFile.h"

#include "platform/Format.h"

using orvale::AddElement;
using orvale::AddElements;
using orvale::AddIndent;
using orvale::AddParent;
using orvale::CommentTable;
using orvale::Element;
using orvale::ForEachChild;
using orvale::Operation;
using orvale::Overloaded;
using orvale::Require;
using orvale::RequireNode;
using orvale::TakeElements;
using orvale::ValueTable;

namespace {

// ---- the document

constexpr orvale::SuiteNames kNames = {
    .root = u"email", .identifier = u"suite-email", .entries = u"emailentries", .entry = u"email"};

constexpr Element<CEmailProfile> kProfile[] = {
    {u"handset", &CEmailProfile::handset},
    {u"dllname", &CEmailProfile::dllname},
    {u"config", &CEmailProfile::config},
    {u"capacity", &CEmailProfile::capacity},
};

constexpr Element<CEmailDevice> kDevice[] = {
    {u"id", &CEmailDevice::id},
    {u"name", &CEmailDevice::name},
    {u"config", &CEmailDevice::config},
    {u"capacity", &CEmailDevice::capacity},
};

constexpr Element<CEmailAccount> kAccount[] = {
    {u"id", &CEmailAccount::id},
    {u"name", &CEmailAccount::name},
    {u"config", &CEmailAccount::config},
    {u"capacity", &CEmailAccount::capacity},
    {u"password", &CEmailAccount::password},
    {u"Address", &CEmailAccount::Address},
};

constexpr Element<CEmailBox> kBox[] = {
    {u"name", &CEmailBox::name},
    {u"config", &CEmailBox::config},
    {u"capacity", &CEmailBox::capacity},
    {u"type", &CEmailBox::type},
};

struct Account {};    ///< a fragment
struct Accessory {};  ///< a `file` for each attachment

using EmailElement = Element<CEmailItem, Account, Accessory>;
constexpr EmailElement kEmail[] = {
    {u"type", &CEmailItem::type},
    {u"device", &CEmailItem::device},
    {u"status", &CEmailItem::status},
    {u"account", Account()},
    {u"box", &CEmailItem::box},
    {u"folder", &CEmailItem::folder},
    {u"from", &CEmailItem::from},
    {u"to", &CEmailItem::to},
    {u"cc", &CEmailItem::cc},
    {u"bcc", &CEmailItem::bcc},
    {u"subject", &CEmailItem::subject},
    {u"body", &CEmailItem::body},
    {u"received", &CEmailItem::received},
    {u"sent", &CEmailItem::sent},
    {u"importance", &CEmailItem::importance},
    {u"symbol", &CEmailItem::symbol},
    {u"sensitivity", &CEmailItem::sensitivity},
    {u"entryid", &CEmailItem::entryid},
    {u"accessory", Accessory()},
};

CommentTable DeviceComments() {
    return CommentTable()
        .Rule()
        .Line(u"The config node includes the flags that illustrate what type of operations the device ")
        .Line(u"supports. The value is not used at present and only 0 is availabel.")
        .Line(u"The device ID can be one of the following value:")
        .NamesInColumns(orvale::kEmailDevices, {u"%-16s - 0x%08X   ", u"%-13s - 0x%08X   ", u"%-15s - 0x%08X"})
        .Line(u"See details in GeneralSyncData")
        .Rule();
}

// The numbers of a subfolder's id, of which the table holds the first.
std::u16string FolderSeries(const orvale::NamedValue& first) {
    return orvale::Format(u"%s - %d %d %d %d ...", first.WideName(), first.value, first.value + 1, first.value + 2,
                          first.value + 3);
}

// EMBX_HAS_SEND stands at the end of one line and again at the start of the next.
CommentTable AccountComments() {
    const ValueTable boxFlags = orvale::kEmailBoxFlags;
    const auto boxFlagColumns = {std::u16string_view(u"%-16s - 0x%08X "), std::u16string_view(u"%-17s - 0x%08X "),
                                 std::u16string_view(u"%-16s - 0x%08X")};
    const ValueTable boxes = orvale::kEmailBoxTypes;
    const auto boxColumns = {std::u16string_view(u"%-16s - %-2d "), std::u16string_view(u"%-17s - %-2d "),
                             std::u16string_view(u"%-16s - %-2d ")};
    const ValueTable folders = orvale::kEmailFolders;
    return CommentTable()
        .Rule()
        .Line(u"The config node of account includes the flags that illustrate what type of operations the ")
        .Line(u"account may support. The value is not used at present and only 0 is availabel.")
        .Line(u"The account ID can be one of the following value:")
        .NamesInColumns(orvale::kEmailAccounts, {u"%s - %d ", u"%s - %d ", u"%s - %d "}, u"......")
        .Line(u"The config node of box includes the flags that illustrate what type of operations the box")
        .Line(u"may support. The value can be one or more of the following flags:")
        .NamesInColumns(boxFlags.first(6), boxFlagColumns)
        .NamesInColumns(boxFlags.subspan(5), boxFlagColumns)
        .Line(u"The box type can be one of the following value:")
        .NamesInColumns(boxes.first(4), {u"%-16s - %-2d ", u"%-17s - %-2d ", u"%-16s - %-2d ", u"%-15s - %d"})
        .NamesInColumns(boxes.subspan(4, 3), boxColumns)
        .NamesInColumns(boxes.subspan(7), boxColumns, u"......")
        .Line(u"The subfolder ID can be one of the following value:")
        .Line(FolderSeries(folders[0]) + u" " + FolderSeries(folders[1]))
        .Line(FolderSeries(folders[2]) + u" ......")
        .Line(u"See details in GeneralSyncData")
        .Rule();
}

CommentTable EmailComments() {
    const ValueTable sensitivities = orvale::kEmailSensitivities;
    return CommentTable()
        .Rule()
        .Line(u"The value of status includes the flags that illustrate what type of operations the email ")
        .Line(u"may support. The value can be one or more of the following flags:")
        .NamesInColumns(orvale::kEmailStatus, {u"%-15s - 0x%07X ", u"%-21s - 0x%07X ", u"%-16s - 0x%07X"})
        .Line(u"The value of importance can be one of the following value:")
        .NamesInColumns(orvale::kEmailImportances, {u"%s - %d ", u"%s - %d ", u"%s - %d"})
        .Line(u"The value of symbol can be one of the following value:")
        .NamesInColumns(orvale::kEmailSymbols, {u"%-19s - %d ", u"%-20s - %d ", u"%-19s - %d "})
        .Line(u"The value of sensitivity can be one of the following value and may be not available now:")
        .NamesInColumns(sensitivities, {u"%s - %d ", u"%s - %d ", u"%s - %d"})
        .Line(u"See details in GeneralSyncData")
        .Rule();
}

}  // namespace

CMLXMLFile::CMLXMLFile()
    : SuiteFile(kNames, {u"ORVALE - CMLXMLFile::Open", Operation::kAll, u"Failed to initialize the XML file",
                         u"Failed to load the XML file"}) {}

CMLXMLFile::~CMLXMLFile() {
    CMLXMLFile::Close();
}

void CMLXMLFile::Close() {
    Operation(*this, u"ORVALE - CMLXMLFile::Close").Run([&] {
        Require(HasDocument());
        SaveDocument();
        email_.Reset();  // may find no memory
        profile_.Reset();
    });
}

void CMLXMLFile::SetProfile(const void* profile) {
    orvale::LogText(u"ORVALE - CMLXMLFile::SetProfile : Begin\r\n");
    if (!HasDocument() || profile == nullptr) return;
    orvale::LogFormat(u"ORVALE - CMLXMLFile::SetProfile : Profile[0x%08X]\r\n", profile);
    Contained([&] { profile_.CopyFrom(*static_cast<const CEmailProfile*>(profile)); });
    orvale::LogText(u"ORVALE - CMLXMLFile::SetProfile : Finish\r\n");
}

std::int32_t CMLXMLFile::Verify() {
    std::int32_t code = VERIFY_OK;
    constexpr unsigned kWords = Operation::kBegin | Operation::kSucceeded | Operation::kFailed;
    Operation(*this, u"ORVALE - CMLXMLFile::Verify", kWords).Run([&] {
        code = SuiteFile::Verify();
        Require(code == VERIFY_OK);
    });
    return code;
}

// ---- reading

std::int32_t CMLXMLFile::ReadFileHeader() {
    Operation operation(*this, u"ORVALE - CMLXMLFile::ReadFileHeader", Operation::kBegin | Operation::kFinish);
    return operation.Run([&] {
        Require(HasDocument());
        profile_.Reset();
        Require(operation, ReadXMLProfile(FindProfile(operation)) != 0, u"Failed to get XML Profile");
        FindEntries();
    });
}

std::int32_t CMLXMLFile::ReadXMLProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CMLXMLFile::ReadXMLProfile").Run([&] {
        TakeElements(Document(), node, kProfile, profile_, [&](NodeHandle child) {
            if (Document().HasName(child, u"device")) Require(ReadXMLDeviceProfile(child) != 0);
            if (Document().HasName(child, u"account")) Require(ReadXMLAccountProfile(child) != 0);
        });
    });
}

std::int32_t CMLXMLFile::ReadXMLDeviceProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CMLXMLFile::ReadXMLDeviceProfile").Run([&] {
        auto device = std::make_unique<CEmailDevice>();
        TakeElements(Document(), node, kDevice, *device);
        profile_.devices.push_back(std::move(device));
    });
}

std::int32_t CMLXMLFile::ReadXMLAccountProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CMLXMLFile::ReadXMLAccountProfile").Run([&] {
        auto account = std::make_unique<CEmailAccount>();
        TakeElements(Document(), node, kAccount, *account, [&](NodeHandle child) {
            if (Document().HasName(child, u"box")) Require(ReadXMLAccountBoxProfile(child, *account) != 0);
        });
        profile_.accounts.push_back(std::move(account));
    });
}

std::int32_t CMLXMLFile::ReadXMLAccountBoxProfile(NodeHandle node, CEmailAccount& account) {
    constexpr unsigned kWords = Operation::kBegin | Operation::kFinish;  // the outcome stands in small letters here
    Operation operation(*this, u"ORVALE - CMLXMLFile::ReadXMLAccountBoxProfile", kWords);
    const std::int32_t result = operation.Run([&] {
        auto box = std::make_unique<CEmailBox>();
        TakeElements(Document(), node, kBox, *box, [&](NodeHandle child) {
            std::u16string folder;
            if (Document().HasName(child, u"subfolder") && ReadXMLBoxFolderProfile(folder, child) != 0)
                box->subfolders.push_back(std::move(folder));
        });
        account.boxes.push_back(std::move(box));
    });
    operation.Tell(result != 0 ? u"succeeded" : u"failed");
    return result;
}

std::int32_t CMLXMLFile::ReadXMLBoxFolderProfile(std::u16string& folder, NodeHandle node) {
    return Operation(*this, u"ORVALE - CMLXMLFile::ReadXMLBoxFolderProfile").Run([&] {
        folder.clear();
        GatherFragment(folder, node);
    });
}

void CMLXMLFile::GatherFragment(std::u16string& fragment, NodeHandle node) {
    ForEachChild(Document(), node, [&](NodeHandle child) {
        if (!Document().IsElement(child)) return;
        const std::u16string name = Document().GetName(child);
        fragment += orvale::Format(u"<%s>%s</%s>", name, Document().GetText(child), name);
    });
}

std::int32_t CMLXMLFile::Read(void** record) {
    return Operation(*this, u"ORVALE - CMLXMLFile::Read").Run([&] {
        Require(HasDocument() && Entries() && record != nullptr);
        *record = &email_;
        email_.Reset();
        Require(ReadEmail(email_, NextEntry()) != 0);
    });
}

std::int32_t CMLXMLFile::ReadEmail(CEmailItem& email, NodeHandle node) {
    constexpr unsigned kWords = Operation::kBegin | Operation::kSucceeded | Operation::kFailed;
    return Operation(*this, u"ORVALE - CMLXMLFile::ReadEmail", kWords).Run([&] {
        const auto addFile = [&](NodeHandle file) { email.accessory.push_back(Document().GetText(file)); };
        const auto take = [&](NodeHandle child, const EmailElement& row) {
            std::visit(Overloaded{[&](auto member) { orvale::FromText(Document().GetText(child), email.*member); },
                                  [&](Account) { GatherFragment(email.account, child); },
                                  [&](Accessory) { ForEachChild(Document(), child, addFile); }},
                       row.member);
        };
        ForEachNamed(Document(), RequireNode(node), kEmail, take, [](NodeHandle) {});
    });
}

// ---- writing

std::int32_t CMLXMLFile::WriteFileHeader() {
    Operation operation(*this, u"ORVALE - CMLXMLFile::WriteFileHeader");
    return operation.Run([&] {
        Require(HasDocument());
        const NodeHandle root = StartDocument(operation, {.empty = u"Empty the document",
                                                          .header = u"Create the document header",
                                                          .root = u"Create the document root node",
                                                          .attributes = u"Set the attributes of root node"});
        WriteCommentTable(orvale::PhoneConfigComments(orvale::kEmailPhoneFlags), root, 0);
        const NodeHandle profile =
            RequireNode(operation, AddElement(Document(), root, u"profile", 1), u"Failed to create XML Profile");
        Require(WriteXMLProfile(profile) != 0);
        AddIndent(Document(), profile, 1);
        WriteCommentTable(EmailComments(), StartEntries(root), 2);
    });
}

std::int32_t CMLXMLFile::WriteXMLProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CMLXMLFile::WriteXMLProfile", Operation::kBegin).Run([&] {
        AddElements(Document(), node, kProfile, profile_, 2);
        Require(WriteXMLDeviceProfile(node) != 0);
        Require(WriteXMLAccountProfile(node) != 0);
    });
}

std::int32_t CMLXMLFile::WriteXMLDeviceProfile(NodeHandle profile) {
    return Operation(*this, u"ORVALE - CMLXMLFile::WriteXMLDeviceProfile").Run([&] {
        WriteCommentTable(DeviceComments(), profile, 2);
        for (const auto& device : profile_.devices)
            if (device) AddParent(Document(), profile, u"device", 2, kDevice, *device);
    });
}

std::int32_t CMLXMLFile::WriteXMLAccountProfile(NodeHandle profile) {
    return Operation(*this, u"ORVALE - CMLXMLFile::WriteXMLAccountProfile").Run([&] {
        WriteCommentTable(AccountComments(), profile, 2);
        for (const auto& account : profile_.accounts) {
            const NodeHandle node = account ? AddElement(Document(), profile, u"account", 2) : NodeHandle();
            if (!node) continue;
            AddElements(Document(), node, kAccount, *account, 3);
            Require(WriteXMLAccountBoxProfile(node, *account) != 0);
            AddIndent(Document(), node, 2);
        }
    });
}

std::int32_t CMLXMLFile::WriteXMLAccountBoxProfile(NodeHandle node, const CEmailAccount& account) {
    return Operation(*this, u"ORVALE - CMLXMLFile::WriteXMLAccountBoxProfile").Run([&] {
        for (const auto& box : account.boxes) {
            const NodeHandle boxNode = box ? AddElement(Document(), node, u"box", 3) : NodeHandle();
            if (!boxNode) continue;
            AddElements(Document(), boxNode, kBox, *box, 4);
            for (const std::u16string& folder : box->subfolders)
                Require(WriteXMLBoxFolderProfile(folder, AddElement(Document(), boxNode, u"subfolder", 4)) != 0);
            AddIndent(Document(), boxNode, 3);
        }
    });
}

std::int32_t CMLXMLFile::WriteXMLBoxFolderProfile(const std::u16string& folder, NodeHandle node) {
    return Operation(*this, u"ORVALE - CMLXMLFile::WriteXMLBoxFolderProfile").Run([&] {
        SpreadFragment(folder, RequireNode(node), 5);
        AddIndent(Document(), node, 4);
    });
}

// The element around the run makes it a document; its name appears nowhere.
void CMLXMLFile::SpreadFragment(const std::u16string& fragment, NodeHandle node, std::int32_t indent) {
    CXMLDocument run(&Shortage());
    run.LoadXML(u"<fragment>" + fragment + u"</fragment>");
    ForEachChild(run, {}, [&](NodeHandle child) {
        AddElement(Document(), node, run.GetName(child), indent, run.GetText(child));
    });
}

std::int32_t CMLXMLFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CMLXMLFile::Write").Run([&] {
        Require(HasDocument() && record != nullptr && Entries());
        Require(WriteEmail(*static_cast<const CEmailItem*>(record)) != 0);
    });
}

std::int32_t CMLXMLFile::WriteEmail(const CEmailItem& email) {
    return Operation(*this, u"ORVALE - CMLXMLFile::WriteEmail", Operation::kBegin).Run([&] {
        const NodeHandle node = RequireNode(StartEntry());
        for (const EmailElement& row : kEmail) {
            const auto add = [&](const std::u16string& text) {
                if (!text.empty()) AddElement(Document(), node, row.name, 3, text);
            };
            std::visit(Overloaded{[&](auto member) { add(orvale::ToText(email.*member)); },
                                  [&](Account) { WriteAccount(email, node); },
                                  [&](Accessory) { WriteAccessory(email, node); }},
                       row.member);
        }
        EndEntry(node);
    });
}

void CMLXMLFile::WriteAccount(const CEmailItem& email, NodeHandle node) {
    if (email.account.empty()) return;
    const NodeHandle account = AddElement(Document(), node, u"account", 3);
    SpreadFragment(email.account, account, 4);
    AddIndent(Document(), account, 3);
}

void CMLXMLFile::WriteAccessory(const CEmailItem& email, NodeHandle node) {
    if (email.accessory.empty()) return;
    const NodeHandle accessory = AddElement(Document(), node, u"accessory", 3);
    for (const std::u16string& file : email.accessory)
        AddElement(Document(), accessory, u"file", 4, file);
    AddIndent(Document(), accessory, 3);
}

void CMLXMLFile::WriteCommentTable(const CommentTable& table, NodeHandle parent, std::int32_t indent) {
    Operation(*this, u"ORVALE - CMLXMLFile::WriteComments").Run([&] {
        orvale::WriteCommentTable(Document(), table, parent, indent);
    });
}
