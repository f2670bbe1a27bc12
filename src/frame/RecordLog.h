#pragma once

class CContactItem;

/// The dumps of records to the log. Each does nothing while the log is off or if its address is null; none throws.
namespace orvale {

void LogContact(const CContactItem* contact) noexcept;

}  // namespace orvale
