#include "records/EmailItem.h"

#include <algorithm>

#include "records/DriverName.h"

CEmailItem& CEmailItem::operator=(const CEmailItem& other) {
    if (this == &other) return *this;
    FreeRawData();
    CopyValues(other);
    if (other.rawSize > 0 && other.rawData != nullptr) {
        rawData = new std::uint8_t[static_cast<std::size_t>(other.rawSize)];
        rawSize = other.rawSize;
        std::copy_n(other.rawData, rawSize, rawData);
    }
    return *this;
}

void CEmailItem::Reset() {
    FreeRawData();
    CopyValues(CEmailItem());
}

void CEmailItem::FreeRawData() {
    if (rawSize <= 0) return;  // a pointer without a size is the host's own business
    delete[] rawData;
    rawData = nullptr;
    rawSize = 0;
}

// All but the version and the raw data.
void CEmailItem::CopyValues(const CEmailItem& other) {
    reserved1 = other.reserved1;
    operation = other.operation;
    type = other.type;
    box = other.box;
    index = other.index;
    device = other.device;
    status = other.status;
    account = other.account;
    folder = other.folder;
    from = other.from;
    to = other.to;
    cc = other.cc;
    bcc = other.bcc;
    subject = other.subject;
    body = other.body;
    received = other.received;
    sent = other.sent;
    accessory = other.accessory;
    importance = other.importance;
    symbol = other.symbol;
    sensitivity = other.sensitivity;
    entryid = other.entryid;
    reserved2 = other.reserved2;
}

CEmailAccount::CEmailAccount(const CEmailAccount& other) : CEmailAccount() {
    *this = other;
}

CEmailAccount& CEmailAccount::operator=(const CEmailAccount& other) {
    if (this == &other) return *this;
    id = other.id;
    name = other.name;
    password = other.password;
    Address = other.Address;
    config = other.config;
    capacity = other.capacity;
    boxes.clear();
    for (const auto& box : other.boxes)
        if (box) boxes.push_back(std::make_unique<CEmailBox>(*box));
    return *this;
}

void CEmailProfile::Reset() {
    handset.clear();
    dllname.clear();
    config = 0;
    capacity = 0;
    devices.clear();
    accounts.clear();
}

void CEmailProfile::CopyFrom(const CEmailProfile& other) {
    if (this == &other) return;
    Reset();
    handset = other.handset;
    dllname = orvale::DriverName(other.dllname);
    config = other.config;
    capacity = other.capacity;
    for (const auto& device : other.devices)
        if (device) devices.push_back(std::make_unique<CEmailDevice>(*device));
    for (const auto& account : other.accounts)
        if (account) accounts.push_back(std::make_unique<CEmailAccount>(*account));
}
