#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "records/EmailItem.h"

/// How the values of an email are called in the head of a message, for reading and writing.
namespace orvale::mail {

/// Days and months in dates, whatever the language of the rest.
inline constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
inline constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// A text that has a line of its own in every message. Where that doesn't give it back exactly, or there is none, it
/// has one of ours.
struct TextRow {
    const char* standard;  ///< null where there is none
    const char* own;
    std::u16string CEmailItem::*member;
};

inline constexpr TextRow kTexts[] = {
    {"From", "X-Orvale-From", &CEmailItem::from},
    {"To", "X-Orvale-To", &CEmailItem::to},
    {"Cc", "X-Orvale-Cc", &CEmailItem::cc},
    {"Bcc", "X-Orvale-Bcc", &CEmailItem::bcc},
    {"Subject", "X-Orvale-Subject", &CEmailItem::subject},
    {"Message-ID", "X-Orvale-Entry-Id", &CEmailItem::entryid},
    {nullptr, "X-Orvale-Box", &CEmailItem::box},
    {nullptr, "X-Orvale-Folder", &CEmailItem::folder},
    {nullptr, "X-Orvale-Account", &CEmailItem::account},
};

/// A number, and the words of a message's head for its values; these are compared without regard to case.
struct NumberRow {
    const char* standard;
    const char* own;
    std::int32_t CEmailItem::*member;
    struct Word {
        std::int32_t value;
        const char* word;  ///< null behind the last
    } words[4];
};

inline constexpr NumberRow kNumbers[] = {
    {"Importance",
     "X-Orvale-Importance",
     &CEmailItem::importance,
     {{EMAIL_IMPORTANCE_LOW, "low"}, {EMAIL_IMPORTANCE_NORMAL, "normal"}, {EMAIL_IMPORTANCE_HIGH, "high"}}},
    {"Sensitivity",
     "X-Orvale-Sensitivity",
     &CEmailItem::sensitivity,
     {{EMAIL_SENSITIVTY_PERSONAL, "Personal"},
      {EMAIL_SENSITIVTY_PRIVATE, "Private"},
      {EMAIL_SENSITIVTY_CONFIDENTIAL, "Company-Confidential"}}},
    {"Status", "X-Orvale-Status", &CEmailItem::status, {{EMAIL_READ, "RO"}, {EMAIL_UNREAD, "O"}, {EMAIL_READ, "R"}}},
    {nullptr, "X-Orvale-Box-Type", &CEmailItem::type, {}},
    {nullptr, "X-Orvale-Device", &CEmailItem::device, {}},
    {nullptr, "X-Orvale-Symbol", &CEmailItem::symbol, {}},
};

/// A date as the number that it is.
struct DateRow {
    const char* own;
    DateValue CEmailItem::*member;
};

inline constexpr DateRow kDates[] = {
    {"X-Orvale-Received", &CEmailItem::received},
    {"X-Orvale-Sent", &CEmailItem::sent},
};

inline constexpr const char* kExactText = "X-Orvale-Text";         ///< "exact": the body as it is, line ends too
inline constexpr const char* kAttachment = "X-Orvale-Attachment";  ///< the text of one, without its data

}  // namespace orvale::mail
