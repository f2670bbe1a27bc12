#pragma once

// The sections of the page, one for each kind of records.

#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "command/html/MonthMarks.h"
#include "command/html/PageText.h"
#include "records/GeneralSyncData.h"

namespace orvale {

/// A phone number with its own form of writing left out, so that two that lead to the same party are alike; empty for
/// what holds no digit.
std::u16string PlainNumber(std::u16string_view number);

/// Texts without doubles, each by its place.
class DistinctTexts {
 public:
    std::size_t PlaceOf(const std::u16string& text) {
        const auto [place, isNew] = places_.try_emplace(text, texts_.size());
        if (isNew) texts_.push_back(&place->first);
        return place->second;
    }
    const std::u16string& operator[](std::size_t place) const { return *texts_[place]; }
    std::size_t size() const { return texts_.size(); }

 private:
    std::map<std::u16string, std::size_t> places_;
    std::vector<const std::u16string*> texts_;
};

/// The sections of the page. Each takes its records as they come, keeps of them what the page will show, and writes
/// its part of the page once all are there: the page is sorted, the records aren't.

/// The address book: cards under an index by letter.
class ContactSection {
 public:
    void Put(const CContactItem& contact);
    void Write(std::ostream& out);
    std::size_t Count() const { return cards_.size(); }

    /// The contact of a number; empty if there is none, or if several have it.
    std::u16string NameOfNumber(std::u16string_view plainNumber) const;

 private:
    struct Card {
        std::u16string key;
        Markup html;
    };
    std::vector<Card> cards_;
    std::map<std::u16string, std::u16string, std::less<>> names_;  // by plain number
};

/// The calendar: the months with what falls into them, an agenda, and what is to do.
class CalendarSection {
 public:
    void Put(const CCalendarItem& item);
    void Write(std::ostream& out);
    std::size_t Count() const { return entries_.size(); }

 private:
    struct Entry {
        std::optional<CalendarFields> start;
        std::string outOfRange;  // a start that has no calendar fields
        bool isTodo;
        bool isDone;
        bool isYearly;
        Markup html;
    };

    // Where an entry stands in the agenda: what comes back each year from before the drawn ones is of no year.
    enum class Group { kDated, kEveryYear, kUndated };
    Group GroupOf(const Entry& entry) const;
    std::u16string HeadingOf(const Entry& entry) const;
    bool StandsUnderSame(const Entry& a, const Entry& b, bool day) const;

    void WriteYears(std::ostream& out, const MonthMarks& marks) const;
    void WriteAgenda(std::ostream& out, const std::vector<std::size_t>& order) const;
    void WriteTodos(std::ostream& out, const std::vector<std::size_t>& order) const;

    std::vector<Entry> entries_;
    MonthMarks marks_;
};

/// The messages as threads, one for each other party.
class MessageSection {
 public:
    void Put(const CSMSItem& sms);
    /// `contacts` names the parties that the messages don't name.
    void Write(std::ostream& out, const ContactSection& contacts);
    std::size_t Count() const { return count_; }

 private:
    struct Message {
        std::int64_t order;  // by its moment; behind all others where it has none
        std::size_t number;
        std::size_t name;  // of the thread's names
        std::optional<CalendarFields> moment;
        Markup html;
    };
    struct Thread {
        DistinctTexts numbers;  // as they were written
        DistinctTexts names;
        std::vector<Message> messages;
        std::int64_t latest = INT64_MIN;  // of what the following tell
        std::u16string snippet;
        std::u16string name;
        std::u16string title;

        void Take(Thread& from);  // its messages
    };

    void MergeNationalNumbers();
    void WriteThread(std::ostream& out, const Thread& thread, std::size_t number) const;

    std::map<std::u16string, Thread, std::less<>> threads_;  // by plain number, or by name behind a blank
    std::size_t count_ = 0;
};

/// The mails: a list by boxes, and each mail to be read.
class MailSection {
 public:
    void Put(const CEmailItem& email);
    void Write(std::ostream& out);
    std::size_t Count() const { return mails_.size(); }

 private:
    struct Mail {
        std::int32_t boxType;
        std::u16string box;
        std::int64_t order;
        Markup link;  // in the list
        Markup html;
    };
    std::vector<Mail> mails_;
};

/// Writes a piece to the page.
inline void Write(std::ostream& out, const Markup& markup) {
    out.write(markup.Html().data(), static_cast<std::streamsize>(markup.Html().size()));
}

}  // namespace orvale
