#include "records/SMSItem.h"

#include "platform/DateValue.h"
#include "platform/Format.h"
#include "records/DriverName.h"

CSMSItem::CSMSItem() {
    const orvale::CalendarFields now = orvale::LocalNow();
    time = orvale::Format(u"%04d-%02d-%02d %02d:%02d:%02d", now.year, now.month, now.day, now.hour, now.minute,
                          now.second);
}

void CSMSProfile::Reset() {
    CopyNumbers(CSMSProfile());
    boxes.clear();
}

void CSMSProfile::CopyFrom(const CSMSProfile& other) {
    if (this == &other) return;
    Reset();
    handset = other.handset;
    dllname = orvale::DriverName(other.dllname);
    CopyNumbers(other);
    storageIds = other.storageIds;
    storageNames = other.storageNames;
    for (const auto& box : other.boxes)
        if (box) boxes.push_back(std::make_unique<CSMSBoxItem>(*box));
}

void CSMSProfile::CopyNumbers(const CSMSProfile& other) {
    config = other.config;
    MaxRecipientNum = other.MaxRecipientNum;
    MaxPageNum = other.MaxPageNum;
    MaxSSMPageEng = other.MaxSSMPageEng;
    MaxSSMPageDBC = other.MaxSSMPageDBC;
    MaxLSMPageEng = other.MaxLSMPageEng;
    MaxLSMPageDBC = other.MaxLSMPageDBC;
}
