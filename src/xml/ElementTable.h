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

/// A member of a record that an element can hold. A format may add kinds of its own, and handles those itself.
template <class Record, class... Own>
using Member = std::variant<std::int32_t Record::*, std::u16string Record::*, DateValue Record::*, Own...>;

/// An element that holds one member of a record; a table has these in their order of writing.
template <class Record, class... Own>
struct Element {
    std::u16string_view name;
    Member<Record, Own...> member;
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

/// An element that holds those of a table; its closing tag stands on a line of its own.
template <class Record, std::size_t kRows>
void AddParent(CXMLDocument& document, NodeHandle grandparent, std::u16string_view name, std::int32_t indent,
               const Element<Record> (&table)[kRows], const Record& record) {
    const NodeHandle parent = AddElement(document, grandparent, name, indent);
    if (!parent) return;
    AddElements(document, parent, table, record, indent + 1);
    AddIndent(document, parent, indent);
}

/// An element that holds one for each column, of the lists' entries at an index. Throws std::out_of_range behind a
/// list's end, which leaves the element as far as it came.
template <class Record, std::size_t kColumns>
void AddParent(CXMLDocument& document, NodeHandle grandparent, std::u16string_view name, std::int32_t indent,
               const Column<Record> (&columns)[kColumns], const Record& record, std::size_t index) {
    const NodeHandle parent = AddElement(document, grandparent, name, indent);
    if (!parent) return;
    for (const Column<Record>& column : columns) {
        const auto add = [&](auto list) {
            AddElement(document, parent, column.name, indent + 1, ToText((record.*list).at(index)));
        };
        std::visit(add, column.list);
    }
    AddIndent(document, parent, indent);
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

/// Runs `take` with each child of a node that a row names exactly and with that row, and `other` with the others.
template <class Row, std::size_t kRows, class Take, class Other>
void ForEachNamed(const CXMLDocument& document, NodeHandle parent, const Row (&table)[kRows], Take take, Other other) {
    RowFinder<Row> rows(table);
    ForEachChild(document, parent, [&](NodeHandle child) {
        const Row* const row = rows.Find([&](std::u16string_view name) { return document.HasName(child, name); });
        row != nullptr ? take(child, *row) : other(child);
    });
}

/// Takes each child of a node that a row names exactly; `other` gets the children that no row names.
template <class Record, std::size_t kRows, class Other>
void TakeElements(const CXMLDocument& document, NodeHandle parent, const Element<Record> (&table)[kRows],
                  Record& record, Other other) {
    const auto take = [&](NodeHandle child, const Element<Record>& row) {
        std::visit([&](auto member) { FromText(document.GetText(child), record.*member); }, row.member);
    };
    ForEachNamed(document, parent, table, take, other);
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
