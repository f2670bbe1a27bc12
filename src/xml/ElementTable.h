#pragma once

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "frame/UtcText.h"
#include "platform/DateValue.h"
#include "platform/Text.h"
#include "xml/XMLDocument.h"

/// How the members of records stand in elements, told once in tables that a reader and a writer both follow. Numbers
/// are decimal, dates are UTC text.
namespace orvale {

/// An element that holds one member of a record; a table has these in their order of writing. A format may add kinds of
/// its own to the members, and handles those itself.
template <class Record, class... Own>
struct Element {
    std::u16string_view name;
    std::variant<std::int32_t Record::*, std::u16string Record::*, DateValue Record::*, Own...> member;
};

/// An element that holds one entry of a list; entry i of all lists of a table makes one parent of such elements.
template <class Record>
struct Column {
    std::u16string_view name;
    std::variant<std::vector<std::uint32_t> Record::*, std::vector<std::u16string> Record::*> list;
};

/// One handler for each kind of member.
template <class... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <class... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

// ---- between members and texts

inline std::u16string ToText(std::int32_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}
inline const std::u16string& ToText(const std::u16string& text) {
    return text;
}
inline std::u16string ToText(const DateValue& date) {
    return DateToUtcText(date);
}
inline std::u16string ToText(std::uint32_t number) {  // a list's number, written as a signed one
    return ToText(static_cast<std::int32_t>(number));
}

/// False where the text makes no such value.
inline bool FromText(const std::u16string& text, std::int32_t& number) {
    number = ToNumber(text);
    return true;
}
inline bool FromText(std::u16string text, std::u16string& value) {
    value = std::move(text);
    return true;
}
inline bool FromText(const std::u16string& text, DateValue& date) {
    return UtcTextToDate(text, date);
}
inline bool FromText(const std::u16string& text, std::uint32_t& number) {
    number = static_cast<std::uint32_t>(ToNumber(text));
    return true;
}

// ---- writing

inline NodeHandle AddElement(CXMLDocument& document, NodeHandle parent, std::u16string_view name, std::int32_t indent,
                             CXMLDocument::Text text = {}) {
    return document.CreateNode(name, text, parent, true, indent);
}

/// White space alone: before a comment, or before the end of the parent.
inline void AddIndent(CXMLDocument& document, NodeHandle parent, std::int32_t indent) {
    document.CreateNode(u"", {}, parent, true, indent);
}

/// An element for each row, also where its text is empty.
template <class Record, std::size_t kRows>
void AddElements(CXMLDocument& document, NodeHandle parent, const Element<Record> (&table)[kRows], const Record& record,
                 std::int32_t indent) {
    for (const Element<Record>& row : table)
        std::visit([&](auto member) { AddElement(document, parent, row.name, indent, ToText(record.*member)); },
                   row.member);
}

/// An element for each column, of the lists' entries at an index. Throws std::out_of_range behind a list's end.
template <class Record, std::size_t kColumns>
void AddEntry(CXMLDocument& document, NodeHandle parent, const Column<Record> (&columns)[kColumns],
              const Record& record, std::size_t index, std::int32_t indent) {
    for (const Column<Record>& column : columns)
        std::visit(
            [&](auto list) { AddElement(document, parent, column.name, indent, ToText((record.*list).at(index))); },
            column.list);
}

// ---- reading

/// Runs `visit` for each child of a node.
template <class Visit>
void ForEachChild(const CXMLDocument& document, NodeHandle parent, Visit visit) {
    for (NodeHandle child = document.FirstChild(parent); child; child = document.NextSibling(child))
        visit(child);
}

/// Finds rows by name. Documents mostly keep the order of writing, so a search starts behind the row that was found
/// last.
template <class Row>
class RowFinder {
 public:
    template <std::size_t kRows>
    explicit RowFinder(const Row (&table)[kRows]) : first_(table), count_(kRows) {}

    /// The row whose name `hasName` knows, or null.
    template <class HasName>
    const Row* Find(HasName hasName) {
        for (std::size_t tries = 0; tries < count_; ++tries) {
            const Row& row = first_[next_];
            next_ = next_ + 1 == count_ ? 0 : next_ + 1;
            if (hasName(row.name)) return &row;
        }
        return nullptr;
    }

 private:
    const Row* first_;
    std::size_t count_;
    std::size_t next_ = 0;
};

/// Takes each child of a node that a row names exactly; `other` gets the children that no row names.
template <class Record, std::size_t kRows, class Other>
void TakeElements(const CXMLDocument& document, NodeHandle parent, const Element<Record> (&table)[kRows],
                  Record& record, Other other) {
    RowFinder<Element<Record>> rows(table);
    ForEachChild(document, parent, [&](NodeHandle child) {
        const auto* const row = rows.Find([&](std::u16string_view name) { return document.HasName(child, name); });
        if (row == nullptr) return other(child);
        std::visit([&](auto member) { FromText(document.GetText(child), record.*member); }, row->member);
    });
}

template <class Record, std::size_t kRows>
void TakeElements(const CXMLDocument& document, NodeHandle parent, const Element<Record> (&table)[kRows],
                  Record& record) {
    TakeElements(document, parent, table, record, [](NodeHandle) {});
}

/// Which of several children of one name counts.
enum class Repeated { kFirst, kLast };

/// Appends one entry to each list, from the children that the columns name exactly: 0 or the empty text where there is
/// none.
template <class Record, std::size_t kColumns>
void TakeEntry(const CXMLDocument& document, NodeHandle parent, const Column<Record> (&columns)[kColumns],
               Record& record, Repeated repeated) {
    for (const Column<Record>& column : columns) {
        NodeHandle found;
        ForEachChild(document, parent, [&](NodeHandle child) {
            const bool counts = repeated == Repeated::kLast || !found;
            if (counts && document.HasName(child, column.name)) found = child;
        });
        std::visit([&](auto list) { FromText(document.GetText(found), (record.*list).emplace_back()); }, column.list);
    }
}

}  // namespace orvale
