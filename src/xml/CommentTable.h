#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "records/ValueTables.h"
#include "xml/XMLDocument.h"

namespace orvale {

/// The comments by which a suite document explains its own numbers, one after the other. Each is a line of a table at
/// least 90 units wide, filled up with blanks. Names, numbers and texts come from the value tables.
class CommentTable {
 public:
    /// A line over the whole width.
    CommentTable& Line(std::u16string_view text);

    /// A line of equals signs.
    CommentTable& Rule() { return Line(std::u16string(kWidth, u'=')); }

    /// A line for each value: name behind `indent` blanks, number in hexadecimal with `digits` digits, text.
    CommentTable& Values(ValueTable values, std::size_t indent, int digits = 8);

    /// Lines of several values each, every value by the format of its column: of name, number and text, or of number
    /// and text. `tail` ends the last of the lines.
    CommentTable& NamesInColumns(ValueTable values, std::initializer_list<std::u16string_view> formats,
                                 std::u16string_view tail = {});
    CommentTable& TextsInColumns(ValueTable values, std::initializer_list<std::u16string_view> formats);

    /// A comment that isn't filled up.
    CommentTable& Plain(std::u16string text);

    const std::vector<std::u16string>& Comments() const { return comments_; }

 private:
    static constexpr std::size_t kWidth = 90;

    std::vector<std::u16string> comments_;
};

/// What explains the `config` of a profile, of which these are the flags.
CommentTable PhoneConfigComments(ValueTable flags);

/// Each value by a format of name and number, with `separator` between.
std::u16string JoinNames(ValueTable values, std::u16string_view format, std::u16string_view separator);

/// Adds the comments to a parent (the root for none), each on a line of its own at that depth.
void WriteCommentTable(CXMLDocument& document, const CommentTable& table, NodeHandle parent, std::int32_t indent);

}  // namespace orvale
