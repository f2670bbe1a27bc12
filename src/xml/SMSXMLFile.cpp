#include "xml/SMSXMLFile.h"

#include "frame/RecordLog.h"
#include "platform/Format.h"

using orvale::AddElement;
using orvale::AddElements;
using orvale::AddEntry;
using orvale::AddIndent;
using orvale::Column;
using orvale::CommentTable;
using orvale::Element;
using orvale::ForEachChild;
using orvale::Operation;
using orvale::Repeated;
using orvale::Require;
using orvale::TakeElements;

namespace {

constexpr std::u16string_view kIdentifier = u"suite-SMS";

// ---- the document

constexpr Element<CSMSProfile> kProfile[] = {
    {u"handset", &CSMSProfile::handset},
    {u"dllname", &CSMSProfile::dllname},
    {u"config", &CSMSProfile::config},
    {u"MaxRecipientNum", &CSMSProfile::MaxRecipientNum},
    {u"MaxPageNum", &CSMSProfile::MaxPageNum},
    {u"MaxSSMPageEng", &CSMSProfile::MaxSSMPageEng},
    {u"MaxSSMPageDBC", &CSMSProfile::MaxSSMPageDBC},
    {u"MaxLSMPageEng", &CSMSProfile::MaxLSMPageEng},
    {u"MaxLSMPageDBC", &CSMSProfile::MaxLSMPageDBC},
};

constexpr Column<CSMSProfile> kStorage[] = {
    {u"id", &CSMSProfile::storageIds},
    {u"name", &CSMSProfile::storageNames},
};

constexpr Element<CSMSBoxItem> kBox[] = {
    {u"type", &CSMSBoxItem::type},     {u"name", &CSMSBoxItem::name},         {u"capacity", &CSMSBoxItem::capacity},
    {u"used", &CSMSBoxItem::used},     {u"position", &CSMSBoxItem::position}, {u"location", &CSMSBoxItem::location},
    {u"config", &CSMSBoxItem::config},
};

constexpr Column<CSMSBoxItem> kDisplay[] = {
    {u"label", &CSMSBoxItem::displayLabels},
    {u"index", &CSMSBoxItem::displayIndexes},
    {u"width", &CSMSBoxItem::displayWidths},
};

constexpr Column<CSMSBoxItem> kSubbox[] = {
    {u"id", &CSMSBoxItem::subboxIds},
    {u"name", &CSMSBoxItem::subboxNames},
};

constexpr Element<CSMSItem> kSms[] = {
    {u"listtype", &CSMSItem::listtype},
    {u"name", &CSMSItem::name},
    {u"storageid", &CSMSItem::storageid},
    {u"status", &CSMSItem::status},
    {u"phonenumber", &CSMSItem::phonenumber},
    {u"content", &CSMSItem::content},
    {u"time", &CSMSItem::time},
    {u"smstype", &CSMSItem::smstype},
};

CommentTable ConfigComments() {
    return CommentTable()
        .Rule()
        .Line(u"The config node includes the flags that illustrate what type of operations the phone ")
        .Line(u"supports. The value can be one or more of the following flags:")
        .Values(orvale::kSmsPhoneFlags, 5)
        .Rule();
}

CommentTable StorageComments() {
    return CommentTable()
        .Line(u"The id node illustrates the storage Identifer. The value may be:   ")
        .TextsInColumns(orvale::kSmsStorages,
                        {u" %d - %s   ", u"%d - %s  ", u"%d - %s  ", u"%d - %s  ", u"%d - %s  ", u"%d - %s"});
}

CommentTable BoxComments() {
    return CommentTable()
        .Line(u"The type node illustrate what type of SMS box belongs, The value may be:")
        .TextsInColumns(orvale::kSmsBoxTypes,
                        {u"   %d - %-8s", u"%d - %-10s", u"%d - %-11s", u"%d - %-11s", u"%d - %s"})
        .Line(u"The config node includes the flags that illustrate what type of operations the box ")
        .Line(u"supports. The value can be one or more of the following flags:")
        .Values(orvale::kSmsBoxFlags, 7);
}

}  // namespace

CSMSXMLFile::CSMSXMLFile() : SuiteFile(u"ORVALE - CSMSXMLFile::Open") {}

CSMSXMLFile::~CSMSXMLFile() {
    CSMSXMLFile::Close();
}

std::int32_t CSMSXMLFile::Open(const char16_t* fileName, const std::uint32_t* openFlags) {
    Operation operation(*this, u"ORVALE - CSMSXMLFile::Open");
    return operation.Run([&] { OpenDocument(operation, fileName, openFlags); });
}

void CSMSXMLFile::Close() {
    Operation(*this, u"ORVALE - CSMSXMLFile::Close").Run([&] {
        Require(HasDocument());
        SaveDocument();
        sms_.Reset();  // may find no memory
        profile_.Reset();
    });
}

void CSMSXMLFile::SetProfile(const void* profile) {
    if (!HasDocument() || profile == nullptr) return;
    orvale::LogFormat(u"ORVALE - CSMSXMLFile::SetProfile : Profile[0x%08X]\r\n", profile);
    Contained([&] { profile_.CopyFrom(*static_cast<const CSMSProfile*>(profile)); });
}

void CSMSXMLFile::GetProfile(const void** profile) {
    if (HasDocument() && profile != nullptr) *profile = &profile_;
}

std::int32_t CSMSXMLFile::Verify() {
    VerifyCode code = VERIFY_OK;
    Operation(*this, u"ORVALE - CSMSXMLFile::Verify").Run([&] {
        code = JudgeIdentifier(kIdentifier);
        Require(code == VERIFY_OK);
    });
    return code;
}

// ---- reading

std::int32_t CSMSXMLFile::ReadFileHeader() {
    Operation operation(*this, u"ORVALE - CSMSXMLFile::ReadFileHeader");
    return operation.Run([&] {
        Require(HasDocument());
        profile_.Reset();
        const NodeHandle profile = Document().FindChild(u"profile", {});
        if (!profile) operation.Tell(u"NULL Profile Node");
        Require(static_cast<bool>(profile));
        const bool isRead = ReadXMLProfile(profile) != 0;
        if (!isRead) operation.Tell(u"Failed to get XML Profile");
        Require(isRead);
        SetEntries(Document().FindChild(u"smsentries", {}));
    });
}

std::int32_t CSMSXMLFile::ReadXMLProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::ReadXMLProfile").Run([&] {
        TakeElements(Document(), node, kProfile, profile_, [&](NodeHandle child) {
            if (Document().HasName(child, u"storage")) Require(ReadXMLDeviceProfile(child, profile_) != 0);
            if (Document().HasName(child, u"boxitem")) Require(ReadXMLBoxProfile(child, profile_) != 0);
        });
    });
}

std::int32_t CSMSXMLFile::ReadXMLDeviceProfile(NodeHandle node, CSMSProfile& profile) {
    Operation operation(*this, u"ORVALE - CSMSXMLFile::ReadXMLDeviceProfile");
    return operation.Run([&] {
        TakeEntry(Document(), node, kStorage, profile, Repeated::kFirst);
        if (!orvale::LogEnabled()) return;
        const std::u16string id = Document().GetText(Document().FindChild(u"id", node));
        operation.Tell(orvale::Format(u"ID = %s Name = %s", id, profile.storageNames.back()));
    });
}

std::int32_t CSMSXMLFile::ReadXMLBoxProfile(NodeHandle node, CSMSProfile& profile) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::ReadXMLBoxProfile").Run([&] {
        auto box = std::make_unique<CSMSBoxItem>();
        TakeElements(Document(), node, kBox, *box, [&](NodeHandle child) {
            if (Document().HasName(child, u"display"))
                TakeEntry(Document(), child, kDisplay, *box, Repeated::kFirst);
            else if (Document().HasName(child, u"subbox"))
                TakeEntry(Document(), child, kSubbox, *box, Repeated::kFirst);
        });
        profile.boxes.push_back(std::move(box));
    });
}

std::int32_t CSMSXMLFile::Read(void** record) {
    Operation operation(*this, u"ORVALE - CSMSXMLFile::Read");
    return operation.Run([&] {
        Require(HasDocument() && Entries() && record != nullptr);
        *record = &sms_;
        sms_.Reset();
        const bool isRead = ReadSMSItem(sms_, NextEntry(u"sms")) != 0;
        if (!isRead) operation.Tell(u"Failed to load SMS Item");
        Require(isRead);
        orvale::LogSms(&sms_);
    });
}

std::int32_t CSMSXMLFile::ReadSMSItem(CSMSItem& sms, NodeHandle node) {
    constexpr unsigned kLines = Operation::kSucceeded | Operation::kFailed | Operation::kFinish;
    return Operation(*this, u"ORVALE - CSMSXMLFile::ReadSMSItem", kLines).Run([&] {
        Require(static_cast<bool>(node));
        TakeElements(Document(), node, kSms, sms);
    });
}

// ---- writing

std::int32_t CSMSXMLFile::WriteFileHeader() {
    Operation operation(*this, u"ORVALE - CSMSXMLFile::WriteFileHeader");
    return operation.Run([&] {
        Require(HasDocument());
        EmptyDocument();
        Document().CreateHeader();
        const NodeHandle root = Document().CreateRoot(u"SMS");
        Require(static_cast<bool>(root));
        SetRootAttributes(root, kIdentifier);
        WriteCommentTable(ConfigComments(), root, 0);
        const NodeHandle profile = AddElement(Document(), root, u"profile", 1);
        Require(static_cast<bool>(profile));
        const bool isWritten = WriteXMLProfile(profile) != 0;
        if (!isWritten) operation.Tell(u"Failed to write XML Profile");
        Require(isWritten);
        SetEntries(AddElement(Document(), root, u"smsentries", 1));
        if (!Entries()) operation.Tell(u"Failed to create entries");
        Require(static_cast<bool>(Entries()));
    });
}

std::int32_t CSMSXMLFile::WriteXMLProfile(NodeHandle node) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::WriteXMLProfile").Run([&] {
        AddElements(Document(), node, kProfile, profile_, 2);
        Require(WriteXMLDeviceProfile(node, profile_) != 0);
        Require(WriteXMLBoxProfile(node, profile_) != 0);
        AddIndent(Document(), node, 1);
    });
}

std::int32_t CSMSXMLFile::WriteXMLDeviceProfile(NodeHandle node, const CSMSProfile& profile) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::WriteXMLDeviceProfile").Run([&] {
        WriteCommentTable(StorageComments(), node, 2);
        for (std::size_t i = 0; i < profile.storageIds.size(); ++i) {
            const NodeHandle storage = AddElement(Document(), node, u"storage", 2);
            if (!storage) continue;
            AddEntry(Document(), storage, kStorage, profile, i, 3);
            AddIndent(Document(), storage, 2);
        }
    });
}

// A list that is shorter than its sister fails the whole.
std::int32_t CSMSXMLFile::WriteXMLBoxProfile(NodeHandle node, const CSMSProfile& profile) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::WriteXMLBoxProfile").Run([&] {
        WriteCommentTable(BoxComments(), node, 2);
        for (const auto& box : profile.boxes) {
            const NodeHandle item = box ? AddElement(Document(), node, u"boxitem", 2) : NodeHandle();
            if (!item) continue;
            AddElements(Document(), item, kBox, *box, 3);
            const auto addEntries = [&](std::u16string_view name, const auto& columns, std::size_t count) {
                for (std::size_t i = 0; i < count; ++i) {
                    const NodeHandle entry = AddElement(Document(), item, name, 3);
                    AddEntry(Document(), entry, columns, *box, i, 4);
                    AddIndent(Document(), entry, 3);
                }
            };
            addEntries(u"display", kDisplay, box->displayLabels.size());
            addEntries(u"subbox", kSubbox, box->subboxIds.size());
            AddIndent(Document(), item, 2);
        }
    });
}

std::int32_t CSMSXMLFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::Write").Run([&] {
        Require(HasDocument() && record != nullptr);
        const auto& sms = *static_cast<const CSMSItem*>(record);
        orvale::LogSms(&sms);
        Require(Entries() && WriteSMSItem(sms, Entries()) != 0);
    });
}

std::int32_t CSMSXMLFile::WriteSMSItem(const CSMSItem& sms, NodeHandle entries) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::WriteSMSItem").Run([&] {
        const NodeHandle node = AddElement(Document(), entries, u"sms", 2);
        Require(static_cast<bool>(node));
        AddNumberComment(node, 3);
        AddElements(Document(), node, kSms, sms, 3);
        AddIndent(Document(), node, 2);
    });
}

void CSMSXMLFile::WriteCommentTable(const CommentTable& table, NodeHandle parent, std::int32_t indent) {
    Operation(*this, u"ORVALE - CSMSXMLFile::WriteComments").Run([&] {
        orvale::WriteCommentTable(Document(), table, parent, indent);
    });
}
