#pragma once

#include <string>
#include <string_view>

#include "platform/DateValue.h"
#include "records/EmailItem.h"

/// The line that begins a message in a mailbox, "From zoe@example.com Mon Mar 17 06:02:11 2008": who sent it and when
/// it was received, in UTC (RFC 4155).
namespace orvale {

inline constexpr std::string_view kMessageBegin = "From ";

/// Whether a line begins like one. Such a line of a message gets one ">" more before it where it is written, and loses
/// one where it is read.
bool LooksLikeBegin(std::string_view line);

/// Whether a line is one as mailbox writers make it: anything, then a date, with seconds or without, with a zone before
/// the year, behind it or without. Other lines that begin so are one only where a line of a message's head follows.
bool IsBegin(std::string_view line);
bool IsLineOfHead(std::string_view line);

/// The moment in such a line in the process's zone; none where it holds no date, or 1970, which stands for none.
DateValue ReceivedOf(std::string_view line);

/// The line of an email, with its end.
std::string BeginLine(const CEmailItem& email);

}  // namespace orvale
