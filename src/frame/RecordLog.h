#pragma once

class CCalendarItem;
class CContactItem;
class CEmailItem;
class CSMSItem;

/// The dumps of records to the log. Each does nothing while the log is off or if its address is null; none throws.
namespace orvale {

void LogContact(const CContactItem* contact) noexcept;
void LogCalendar(const CCalendarItem* item) noexcept;
void LogSms(const CSMSItem* sms) noexcept;
void LogEmail(const CEmailItem* email) noexcept;

}  // namespace orvale
