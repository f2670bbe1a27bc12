#include "xml/CDXMLFile.h"

#include <algorithm>

#include "frame/RecordLog.h"
#include "platform/Format.h"
#include "records/DriverName.h"
#include "xml/CommentTable.h"

using orvale::AddElement;
using orvale::AddIndent;
using orvale::CommentTable;
using orvale::ForEachChild;
using orvale::Operation;
using orvale::Overloaded;
using orvale::Require;
using orvale::RequireNode;

namespace {

// ---- the document

constexpr orvale::SuiteNames kNames = {
    .root = u"calendar", .identifier = u"suite-calendar", .entries = u"calendarentries", .entry = u"data"};

const CommentTable& TypeComment() {
    static const CommentTable comments =
        CommentTable().Plain(orvale::JoinNames(orvale::kCalendarItemTypes, u"%s - %d", u", "));
    return comments;
}

const CommentTable& CategoryComments() {
    static const CommentTable comments = CommentTable().NamesInColumns(
        orvale::kCalendarCategories, {u"%-19s-%2d,", u"%-17s-%2d,", u"%-16s-%2d,", u"%-16s-%2d,", u"%-13s-%2d"});
    return comments;
}

const CommentTable& RecurrenceComment() {
    static const CommentTable comments = CommentTable().Plain(orvale::JoinNames(orvale::kRecurrences, u"%s-%d", u" "));
    return comments;
}

const CommentTable& WeekdayComment() {
    static const CommentTable comments = CommentTable().Plain(orvale::JoinNames(orvale::kWeekdays, u"%s= %d", u","));
    return comments;
}

const CommentTable& PriorityComment() {
    static const CommentTable comments =
        CommentTable().Plain(orvale::JoinNames(orvale::kTaskPriorities, u"%s-%d", u" "));
    return comments;
}

/// A number that is written as an unsigned one, so that -1 stands as 4294967295.
struct Unsigned {
    std::int32_t CCalendarItem::*member;
};

/// The place of the fields, whose elements have names of their own.
struct Fields {};

struct DataElement {
    std::u16string_view name;
    orvale::Member<CCalendarItem, Unsigned, Fields> member;
    const CommentTable& (*comments)() = nullptr;  ///< what stands before the element
    std::int32_t version = 0;                     ///< only records of this layout have the member

    bool Concerns(const CCalendarItem& item) const { return version == 0 || version == item.GetVersion(); }
};

using Item = CCalendarItem;
constexpr DataElement kData[] = {
    {u"type", Unsigned{&Item::itemType}, TypeComment},
    {u"category", &Item::category, CategoryComments, 101},
    {u"dtstart", &Item::dtstart},
    {u"dtend", &Item::dtend},
    {u"", Fields()},
    {u"recurtype", &Item::recurtype, RecurrenceComment},
    {u"recurday", &Item::recurday},
    {u"recurweekday", &Item::recurweekday},
    {u"recurweekmask", &Item::recurweekmask, WeekdayComment},
    {u"recurmonth", &Item::recurmonth},
    {u"recurinstance", &Item::recurinstance},
    {u"recurinterval", &Item::recurinterval},
    {u"recurrepeat", &Item::recurrepeat},
    {u"recurenddate", &Item::recurenddate},
    {u"recurhasenddate", &Item::recurhasenddate},
    {u"remindermin", &Item::remindermin},
    {u"ringid", &Item::ringid},
    {u"ring", &Item::ring},
    {u"vibration", &Item::vibration},
    {u"secret", &Item::secret},
    {u"priority", &Item::priority, PriorityComment},
    {u"complete", &Item::complete},
    {u"duration", &Item::duration},
    {u"reserve1", &Item::reserve1},
    {u"reserve2", &Item::reserve2},
};

struct FieldElement {
    std::u16string_view name;
    std::int32_t type;
};

constexpr FieldElement kFields[] = {
    {u"description", CAL_FIELD_DESCRIPTION}, {u"body", CAL_FIELD_BODY},
    {u"location", CAL_FIELD_LOCATION},       {u"url", CAL_FIELD_URL},
    {u"phoneno", CAL_FIELD_PHONENO},
};

void AddField(CCalendarItem& item, std::int32_t type, std::u16string text) {
    auto field = std::make_unique<CCalendarField>();
    field->Type = type;
    field->Data = std::move(text);
    item.fields.push_back(std::move(field));
}

// A date that can't be converted is no failure, but the record shows it.
void TakeDate(CCalendarItem& item, DateValue& date, std::u16string_view text) {
    if (!orvale::UtcTextToDate(orvale::Trim(text), date)) item.operation = OPERATION_MODIFY;
}

void TakeMember(CCalendarItem& item, const DataElement& row, const std::u16string& text) {
    std::visit(Overloaded{[&](std::int32_t Item::*number) { item.*number = orvale::ToNumber(text); },
                          [&](std::u16string Item::*member) { item.*member = text; },
                          [&](DateValue Item::*date) { TakeDate(item, item.*date, text); },
                          [&](Unsigned number) { item.*number.member = orvale::ToNumber(text); }, [](Fields) {}},
               row.member);
}

// The element of a config's type; other types have none.
std::u16string_view ConfigName(std::int32_t type) {
    return type == PHONE_EVENT_TYPE ? u"event" : type == PHONE_TODO_TYPE ? u"todo" : u"";
}

// The one comment that holds several lines.
std::u16string FlagsComment() {
    const std::u16string rule(126, u'=');
    std::u16string text = rule +
                          u"\r\nThe config node of Event/Todo includes the flags that illustrate what kind of fields "
                          u"the phone supports.The value can be one or \r\nmore of the following flags:\r\n";
    for (const orvale::NamedValue& row : orvale::kCalendarProperties)
        text +=
            orvale::Format(u"%-48s%-15s%s\r\n", u" " + row.WideName(), orvale::Format(u" 0x%08X", row.value), row.text);
    return text + rule;
}

}  // namespace

CCDXMLFile::CCDXMLFile() : SuiteFile(kNames, {u"ORVALE - CCDXMLFile::Open", Operation::kBegin | Operation::kFinish}) {}

void CCDXMLFile::Close() {
    if (HasDocument()) {
        item_.Clear();
        profile_ = {};
        SaveDocument();
    }
    orvale::LogText(u"ORVALE - CCDXMLFile::Close : Begin/Finish\r\n");
}

void CCDXMLFile::SetProfile(const void* profile) {
    if (!HasDocument() || profile == nullptr) return;
    orvale::LogFormat(u"ORVALE - CCDXMLFile::SetProfile : Profile[0x%08X]\r\n", profile);
    Contained([&] {
        profile_ = *static_cast<const CCalendarProfile*>(profile);
        profile_.dllname = orvale::DriverName(profile_.dllname);
    });
}

// ---- reading

std::int32_t CCDXMLFile::ReadFileHeader() {
    Operation operation(*this, u"ORVALE - CCDXMLFile::ReadFileHeader");
    return operation.Run([&] {
        operation.Tell(u"Check file Status");
        Require(HasDocument());
        profile_ = {};
        operation.Tell(u"Get Profile Node");
        ForEachChild(Document(), FindProfile(operation), [&](NodeHandle child) { ReadOfProfile(operation, child); });
        FindEntries();
    });
}

void CCDXMLFile::ReadOfProfile(const Operation& operation, NodeHandle node) {
    if (Document().HasNameNoCase(node, u"dllname")) {
        operation.Tell(u"Read Dll Name");
        profile_.dllname = Document().GetText(node);
    } else if (Document().HasNameNoCase(node, u"handset")) {
        operation.Tell(u"Read Phone ID");
        profile_.handset = Document().GetText(node);
    } else if (Document().HasNameNoCase(node, u"event")) {
        operation.Tell(u"Read Event Config");
        ReadConfig(node, PHONE_EVENT_TYPE);
    } else if (Document().HasNameNoCase(node, u"todo")) {
        operation.Tell(u"Read Todo Config");
        ReadConfig(node, PHONE_TODO_TYPE);
    }
}

void CCDXMLFile::ReadConfig(NodeHandle node, std::int32_t type) {
    const NodeHandle number = Document().FindChild(u"config", node);
    if (!number) return;
    CCalendarConfig config;
    config.type = type;
    config.config = orvale::ToNumber(Document().GetText(number));
    Require(profile_.configSet.AddConfig(config) != 0, "no memory");
}

std::int32_t CCDXMLFile::Read(void** record) {
    Operation operation(*this, u"ORVALE - CCDXMLFile::Read");
    return operation.Run([&] {
        operation.Tell(u"Check file Status");
        Require(HasDocument());
        operation.Tell(u"Check Entries");
        Require(Entries() && record != nullptr);
        *record = &item_;
        item_.Clear();
        const NodeHandle node = NextEntry();
        operation.Tell(u"Load Calendar");
        LoadCalendar(item_, RequireNode(node));
    });
}

void CCDXMLFile::LoadCalendar(CCalendarItem& item, NodeHandle node) {
    orvale::RowFinder<DataElement> rows(kData);
    ForEachChild(Document(), node, [&](NodeHandle child) {
        const auto hasName = [&](std::u16string_view name) { return Document().HasNameNoCase(child, name); };
        const auto* const field = std::find_if(std::begin(kFields), std::end(kFields),
                                               [&](const FieldElement& each) { return hasName(each.name); });
        const bool isField = field != std::end(kFields);
        const DataElement* const row = isField ? nullptr : rows.Find(hasName);
        if (!isField && row == nullptr) return;
        std::u16string text = Document().GetText(child);
        if (orvale::LogEnabled())
            orvale::LogFormat(u"ORVALE - CCDXMLFile::LoadCalendar : %s  - %s\r\n", Document().GetName(child), text);
        if (isField)
            AddField(item, field->type, std::move(text));
        else if (row->Concerns(item))
            TakeMember(item, *row, text);
    });
    orvale::LogText(std::u16string(104, u'=') + u"\r\n");
}

// ---- writing

std::int32_t CCDXMLFile::WriteFileHeader() {
    Operation operation(*this, u"ORVALE - CCDXMLFile::WriteFileHeader", Operation::kBegin | Operation::kFinish);
    return operation.Run([&] {
        operation.Tell(u"Check file status");
        Require(HasDocument());
        const NodeHandle root = StartDocument(operation, {.header = u"Create XML header",
                                                          .root = u"Create root node",
                                                          .noRoot = u"Failed to create root node",
                                                          .attributes = u"Set root attribute"});
        AddIndent(Document(), root, 0);
        Document().AddComment(FlagsComment(), root);
        operation.Tell(u"Create profile node");
        const NodeHandle profile =
            RequireNode(operation, AddElement(Document(), root, u"profile", 1), u"Failed to create profile node");
        AddElement(Document(), profile, u"handset", 2, profile_.handset);
        AddElement(Document(), profile, u"dllname", 2, profile_.dllname);
        for (const auto& config : profile_.configSet.configs)
            if (config) WriteConfig(profile, *config);
        AddIndent(Document(), profile, 1);
        StartEntries(root);
    });
}

// A config of a type without an element leaves white space alone.
void CCDXMLFile::WriteConfig(NodeHandle profile, const CCalendarConfig& config) {
    const NodeHandle node = AddElement(Document(), profile, ConfigName(config.type), 2);
    if (!node) return;
    AddElement(Document(), node, u"config", 3, orvale::ToText(config.config));
    AddIndent(Document(), node, 2);
}

std::int32_t CCDXMLFile::Write(const void* record) {
    Operation operation(*this, u"ORVALE - CCDXMLFile::Write");
    return operation.Run([&] {
        operation.Tell(u"Check file status");
        Require(HasDocument());
        operation.Tell(u"Check the object");
        Require(record != nullptr);
        operation.Tell(u"Check the entries");
        RequireNode(Entries());
        operation.Tell(u"Write the object");
        Require(WriteCalendar(*static_cast<const CCalendarItem*>(record)) != 0);
    });
}

std::int32_t CCDXMLFile::WriteCalendar(const CCalendarItem& item) {
    Operation operation(*this, u"ORVALE - CCDXMLFile::WriteCalendar");
    return operation.Run([&] {
        orvale::LogCalendar(&item);
        const NodeHandle node = RequireNode(operation, StartEntry(), u"Failed to create the data node");
        for (const DataElement& row : kData) {
            if (!row.Concerns(item)) continue;
            if (row.comments != nullptr) WriteCommentTable(Document(), row.comments(), node, 3);
            const auto add = [&](const std::u16string& text) { AddElement(Document(), node, row.name, 3, text); };
            std::visit(Overloaded{[&](auto member) { add(orvale::ToText(item.*member)); },
                                  [&](Unsigned number) { add(orvale::Format(u"%u", item.*number.member)); },
                                  [&](Fields) { WriteFields(item, node); }},
                       row.member);
        }
        EndEntry(node);
    });
}

void CCDXMLFile::WriteFields(const CCalendarItem& item, NodeHandle node) {
    for (const auto& field : item.fields)
        for (const FieldElement& row : kFields)
            if (field && field->Type == row.type) AddElement(Document(), node, row.name, 3, field->Data);
}
