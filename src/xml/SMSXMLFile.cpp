#include "xml/SMSXMLFile.h"

#include "frame/RecordLog.h"
#include "platform/Format.h"

using orvale::AddElement;
using orvale::AddElements;
using orvale::AddIndent;
using orvale::AddParent;
using orvale::Column;
using orvale::CommentTable;
using orvale::Element;
using orvale::ForEachChild;
using orvale::Operation;
using orvale::Repeated;
using orvale::Require;
using orvale::RequireNode;
using orvale::TakeElements;

namespace {

// ---- the document

constexpr orvale::SuiteNames kNames = {
    .root = u"SMS", .identifier = u"suite-SMS", .entries = u"smsentries", .entry = u"sms"};

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

CSMSXMLFile::CSMSXMLFile() : SuiteFile(kNames, {u"ORVALE - CSMSXMLFile::Open"}) {}

CSMSXMLFile::~CSMSXMLFile() {
    CSMSXMLFile::Close();
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

std::int32_t CSMSXMLFile::Verify() {
    std::int32_t code = VERIFY_OK;
    Operation(*this, u"ORVALE - CSMSXMLFile::Verify").Run([&] {
        code = SuiteFile::Verify();
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
        Require(operation, ReadXMLProfile(FindProfile(operation)) != 0, u"Failed to get XML Profile");
        FindEntries();
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
        Require(operation, ReadSMSItem(sms_, NextEntry()) != 0, u"Failed to load SMS Item");
        orvale::LogSms(&sms_);
    });
}

std::int32_t CSMSXMLFile::ReadSMSItem(CSMSItem& sms, NodeHandle node) {
    constexpr unsigned kWords = Operation::kSucceeded | Operation::kFailed | Operation::kFinish;
    return Operation(*this, u"ORVALE - CSMSXMLFile::ReadSMSItem", kWords).Run([&] {
        TakeElements(Document(), RequireNode(node), kSms, sms);
    });
}

// ---- writing

std::int32_t CSMSXMLFile::WriteFileHeader() {
    Operation operation(*this, u"ORVALE - CSMSXMLFile::WriteFileHeader");
    return operation.Run([&] {
        Require(HasDocument());
        const NodeHandle root = StartDocument(operation);
        WriteCommentTable(orvale::PhoneConfigComments(orvale::kSmsPhoneFlags), root, 0);
        const NodeHandle profile = RequireNode(AddElement(Document(), root, u"profile", 1));
        Require(operation, WriteXMLProfile(profile) != 0, u"Failed to write XML Profile");
        RequireNode(operation, StartEntries(root), u"Failed to create entries");
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
        for (std::size_t i = 0; i < profile.storageIds.size(); ++i)
            AddParent(Document(), node, u"storage", 2, kStorage, profile, i);
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
            for (std::size_t i = 0; i < box->displayLabels.size(); ++i)
                AddParent(Document(), item, u"display", 3, kDisplay, *box, i);
            for (std::size_t i = 0; i < box->subboxIds.size(); ++i)
                AddParent(Document(), item, u"subbox", 3, kSubbox, *box, i);
            AddIndent(Document(), item, 2);
        }
    });
}

std::int32_t CSMSXMLFile::Write(const void* record) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::Write").Run([&] {
        Require(HasDocument() && record != nullptr);
        const auto& sms = *static_cast<const CSMSItem*>(record);
        orvale::LogSms(&sms);
        Require(Entries() && WriteSMSItem(sms) != 0);
    });
}

std::int32_t CSMSXMLFile::WriteSMSItem(const CSMSItem& sms) {
    return Operation(*this, u"ORVALE - CSMSXMLFile::WriteSMSItem").Run([&] {
        const NodeHandle node = RequireNode(StartEntry());
        AddElements(Document(), node, kSms, sms, 3);
        EndEntry(node);
    });
}

void CSMSXMLFile::WriteCommentTable(const CommentTable& table, NodeHandle parent, std::int32_t indent) {
    Operation(*this, u"ORVALE - CSMSXMLFile::WriteComments").Run([&] {
        orvale::WriteCommentTable(Document(), table, parent, indent);
    });
}
