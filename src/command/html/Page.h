#pragma once

// The page as a whole: records go in, markup comes out.

#include <array>
#include <ostream>
#include <vector>

#include "command/formats/RecordSource.h"
#include "command/html/Sections.h"

namespace orvale {

/// One page of records of any kinds, to be looked at in a browser without a network: written once all records are
/// there. What it takes in memory grows with the records: the page is kept in the pieces that they become.
///
/// All texts come from strangers. They reach the page through the holes of its template alone, where they are escaped;
/// a link is made of what is one beyond doubt (see PageText.h); and the page forbids the browser whatever it doesn't
/// hold itself.
class Page {
 public:
    /// The page has a section for the kind, even if no record comes.
    void Expect(Kind kind) { expected_.at(static_cast<std::size_t>(kind)) = true; }

    void Put(const CContactItem& contact);
    void Put(const CCalendarItem& item);
    void Put(const CSMSItem& sms);
    void Put(const CEmailItem& email);
    void AddProfile(const SharedProfile& profile, bool withPasswords);

    /// Writes the page. Done once, and last.
    void Write(std::ostream& out);

    /// How many halves of characters no page can hold.
    std::size_t Halves() const { return halves_; }

 private:
    std::array<bool, 4> expected_{};
    ContactSection contacts_;
    CalendarSection calendar_;
    MessageSection messages_;
    MailSection mails_;
    std::vector<Markup> profiles_;
    std::size_t halves_ = 0;
};

}  // namespace orvale
