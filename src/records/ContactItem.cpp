#include "records/ContactItem.h"

#include <algorithm>
#include <limits>
#include <new>

CContactField& CContactField::operator=(const CContactField& other) {
    if (this == &other) return *this;
    reservedFlags = other.reservedFlags;
    Type = other.Type;
    Data = other.Data;
    std::copy(std::begin(other.attributes), std::end(other.attributes), std::begin(attributes));
    firstText = other.firstText;
    firstNumber = other.firstNumber;
    secondText = other.secondText;
    extraNumber = other.extraNumber;
    extraText = other.extraText;
    groups = other.groups;
    thirdText = other.thirdText;
    secondNumber = other.secondNumber;
    return *this;
}

void CContactField::Clear() {
    reservedFlags = 0;
    Type = 0;
    Data.clear();
    std::fill(std::begin(attributes), std::end(attributes), -1);
    firstText.clear();
    firstNumber = -1;
    secondText.clear();
    extraNumber = 0;
    extraText.clear();
    groups.Clear();
    thirdText.clear();
    secondNumber = -1;
}

CContactItem& CContactItem::operator=(const CContactItem& other) {
    if (this == &other) return *this;
    Clear();
    reservedFlags = other.reservedFlags;
    Index = other.Index;
    reservedNumber1 = other.reservedNumber1;
    MemoryLocation = other.MemoryLocation;
    reservedNumber2 = other.reservedNumber2;
    Storage = other.Storage;
    for (const auto& field : other.fields)
        fields.push_back(field ? std::make_unique<CContactField>(*field) : nullptr);
    if (other.blobSize > 0 && other.blob != nullptr) {
        FreeBlob();
        blob = new std::uint8_t[static_cast<std::size_t>(other.blobSize)];
        blobSize = other.blobSize;
        std::copy_n(other.blob, blobSize, blob);
    }
    reservedNumber3 = other.reservedNumber3;
    firstText = other.firstText;
    secondText = other.secondText;
    firstDate = other.firstDate;
    secondDate = other.secondDate;
    return *this;
}

void CContactItem::Clear(const DateValue& now) {
    reservedFlags = 0;
    Index = -1;
    reservedNumber1 = -1;
    MemoryLocation = -1;
    reservedNumber2 = 0;
    Storage = 0;
    fields.clear();
    FreeBlob();
    reservedNumber3 = 0;
    firstText.clear();
    secondText.clear();
    firstDate = now;
    secondDate = now;
}

void CContactItem::FreeBlob() {
    if (blobSize <= 0) return;  // a pointer without a size is the host's own business
    delete[] blob;
    blob = nullptr;
    blobSize = 0;
}

std::int32_t CContactItem::AddField(const CContactField& field) {
    try {
        fields.push_back(std::make_unique<CContactField>(field));
        return 1;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

const CContactField* CContactItem::FindField(std::int32_t type, std::int32_t& index) const {
    for (auto i = static_cast<std::size_t>(std::max(index, 0)); i < fields.size(); ++i) {
        if (fields[i] && fields[i]->Type == type) {
            index = static_cast<std::int32_t>(i + 1);
            return fields[i].get();
        }
    }
    return nullptr;
}

const CContactField* CContactItem::GetNameField() const {
    for (const std::int32_t type : {CF_GIVEN_NAME, CF_FAMILY_NAME, CF_MIDDLE_NAME, CF_FULL_NAME}) {
        std::int32_t index = 0;
        if (const CContactField* field = FindField(type, index)) return field;
    }
    return nullptr;
}
