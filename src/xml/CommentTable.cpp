#include "xml/CommentTable.h"

#include <span>
#include <utility>

#include "platform/Format.h"

namespace orvale {
namespace {

template <class CellText>
std::vector<std::u16string> InColumns(ValueTable values, std::span<const std::u16string_view> formats, CellText text) {
    std::vector<std::u16string> lines;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::size_t column = i % formats.size();
        if (column == 0) lines.emplace_back();
        lines.back() += text(formats[column], values[i]);
    }
    return lines;
}

}  // namespace

CommentTable& CommentTable::Line(std::u16string_view text) {
    return Plain(Format(u"%-90s", text));
}

CommentTable& CommentTable::Plain(std::u16string text) {
    comments_.push_back(std::move(text));
    return *this;
}

CommentTable& CommentTable::Values(ValueTable values, std::size_t indent, int digits) {
    const std::u16string numberFormat = Format(u"0x%%0%dX", digits);
    for (const NamedValue& value : values)
        Plain(Format(u"%-40s%-20s%-30s", std::u16string(indent, u' ') + value.WideName(),
                     Format(numberFormat, value.value), value.text));
    return *this;
}

CommentTable& CommentTable::NamesInColumns(ValueTable values, std::initializer_list<std::u16string_view> formats,
                                           std::u16string_view tail) {
    auto lines = InColumns(values, formats, [](std::u16string_view format, const NamedValue& value) {
        return Format(format, value.WideName(), value.value, value.text);
    });
    if (!lines.empty()) lines.back() += tail;
    for (const std::u16string& line : lines)
        Line(line);
    return *this;
}

CommentTable& CommentTable::TextsInColumns(ValueTable values, std::initializer_list<std::u16string_view> formats) {
    for (const std::u16string& line : InColumns(values, formats, [](std::u16string_view format, const NamedValue&v) {
             return Format(format, v.value, v.text);
         }))
        Line(line);
    return *this;
}

CommentTable PhoneConfigComments(ValueTable flags) {
    return CommentTable()
        .Rule()
        .Line(u"The config node includes the flags that illustrate what type of operations the phone ")
        .Line(u"supports. The value can be one or more of the following flags:")
        .Values(flags, 5)
        .Rule();
}

std::u16string JoinNames(ValueTable values, std::u16string_view format, std::u16string_view separator) {
    std::u16string text;
    for (const NamedValue& value : values) {
        if (!text.empty()) text += separator;
        text += Format(format, value.WideName(), value.value);
    }
    return text;
}

void WriteCommentTable(CXMLDocument& document, const CommentTable& table, NodeHandle parent, std::int32_t indent) {
    for (const std::u16string& comment : table.Comments()) {
        document.CreateNode(u"", {}, parent, true, indent);
        document.AddComment(comment, parent);
    }
}

}  // namespace orvale
