#pragma once

// Names, numbers and moments, as the sections of the page tell them.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "command/html/Pieces.h"
#include "platform/DateValue.h"

namespace orvale {

/// The first letters of the first and of the last word of a name, or one sign of a script that has no capitals; empty
/// where no word begins with a letter.
std::u16string Initials(std::u16string_view name);

/// The avatar's inside: the initials, or a figure.
Markup Avatar(std::u16string_view name);

/// One of the page's colours for a name, always the same.
std::size_t ColourOf(std::u16string_view name);
constexpr std::size_t kColours = 10;

/// A name as it is sorted: in small letters, Latin and Greek ones without their marks.
std::u16string SortKey(std::u16string_view name);

/// The letter under which a name of this sort key stands; "#" for one that begins with none.
std::u16string LetterOf(std::u16string_view sortKey);

/// The beginning of a text on one line.
std::u16string Snippet(std::u16string_view text, std::size_t most);

/// "1,234".
std::string CountText(std::size_t count);

/// The words with a capital in front.
std::string Capitalised(std::string_view words);

/// "17 Mar 2008".
std::string ShortDay(const CalendarFields& day);

/// "2008-03-17", and with "T18:04:12".
std::string IsoDay(const CalendarFields& day);
std::string IsoMoment(const CalendarFields& moment);

/// A moment as a number that grows with it.
std::int64_t OrderOf(const CalendarFields& moment);

/// The moment of a text such as "2008-03-17 18:04:12", its seconds or its time of day left out perhaps; none for
/// anything else.
std::optional<CalendarFields> MomentOf(std::u16string_view text);

/// Rows of label and value.
class Rows {
 public:
    explicit Rows(const Pieces& pieces) : pieces_(pieces) {}

    /// A row with the icon of that name, unless the row before has the same.
    void Add(std::string_view icon, std::string_view what, const Markup& value);
    void Add(std::string_view icon, std::string_view what, std::u16string_view value);

    /// A row that is shown together with the phone's own numbers alone.
    void AddQuiet(std::string_view what, std::u16string_view value);
    void AddQuiet(std::string_view what, std::int64_t number);

    const Markup& Html() const { return html_; }

 private:
    const Pieces& pieces_;
    std::string icon_;
    Markup html_;
};

/// A value as a link that calls, writes or leads to the web, where it is nothing else than a number, an address or an
/// http address, all in plain characters; else the text alone. What a text hides behind such a beginning never becomes
/// a link: a service code of a phone, the head lines of a mail, a user before a host.
Markup PhoneLink(const Pieces& pieces, std::u16string_view text);
Markup MailLink(const Pieces& pieces, std::u16string_view text);
Markup WebLink(const Pieces& pieces, std::u16string_view text);

/// Text as a piece.
Markup TextMarkup(const Pieces& pieces, std::u16string_view text);

}  // namespace orvale
