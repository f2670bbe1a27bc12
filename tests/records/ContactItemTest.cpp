#include "records/ContactItem.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/Clock.h"
#include "support/FileDriver.h"

using namespace orvale::test;

TEST(ContactField, CopiesAndClearsAllButTheVersion) {
    CContactField field;
    field.version = 7;
    field.reservedFlags = field.Type = field.firstNumber = field.secondNumber = field.attributes[2] = 5;
    field.extraNumber = 5;
    field.Data = field.firstText = field.secondText = field.extraText = field.thirdText = u"x";
    field.SetGroup(1, u"x");
    const CContactField copy = field;
    field.Clear();
    const auto numbersOf = [](const CContactField& f) {
        return std::vector<std::int64_t>{
            f.version,     f.reservedFlags, f.Type,         f.attributes[2],
            f.firstNumber, f.extraNumber,   f.secondNumber, static_cast<std::int64_t>(f.groups.size())};
    };
    EXPECT_EQ(numbersOf(copy), (std::vector<std::int64_t>{100, 5, 5, 5, 5, 5, 5, 1}));
    EXPECT_EQ(numbersOf(field), (std::vector<std::int64_t>{7, 0, 0, -1, -1, 0, -1, 0}));
    EXPECT_EQ(copy.Data + copy.firstText + copy.secondText + copy.extraText + copy.thirdText, u"xxxxx");
    EXPECT_EQ(field.Data + field.firstText + field.secondText + field.extraText + field.thirdText, u"");
}

TEST(ContactItem, CopiesAndClearsAllButTheVersion) {
    const orvale::StoppedClock clock(1280124015);
    CContactItem contact = ContactOf("5=x");
    contact.fields.push_back(nullptr);
    contact.version = 7;
    contact.reservedFlags = contact.Index = contact.reservedNumber1 = contact.MemoryLocation = 5;
    contact.reservedNumber2 = contact.Storage = contact.reservedNumber3 = 5;
    contact.firstText = contact.secondText = u"x";
    contact.firstDate = contact.secondDate = DateValue(1.0);
    contact.blob = new std::uint8_t[3]{1, 2, 3};
    contact.blobSize = 3;
    const CContactItem copy = contact;
    contact.Clear();
    const auto numbersOf = [](const CContactItem& c) {
        return std::vector<std::int64_t>{c.version,         c.reservedFlags,
                                         c.Index,           c.reservedNumber1,
                                         c.MemoryLocation,  c.reservedNumber2,
                                         c.Storage,         c.blobSize,
                                         c.reservedNumber3, static_cast<std::int64_t>(c.FieldCount())};
    };
    EXPECT_EQ(numbersOf(copy), (std::vector<std::int64_t>{100, 5, 5, 5, 5, 5, 5, 3, 5, 2}));
    EXPECT_EQ(numbersOf(contact), (std::vector<std::int64_t>{7, 0, -1, -1, -1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(copy.firstText + copy.secondText, u"xx");
    EXPECT_EQ(contact.firstText + contact.secondText, u"");
    EXPECT_EQ(contact.blob, nullptr);
    EXPECT_EQ(copy.blob[2], 3) << "a copy of its own";
    EXPECT_EQ(copy.fields.at(1), nullptr);
    EXPECT_EQ(copy.secondDate.Value(), 1.0);
    EXPECT_EQ(contact.firstDate.Value(), DateValue::FromFields({2010, 7, 26, 6, 0, 15}).Value());
    EXPECT_EQ(contact.secondDate.Value(), contact.firstDate.Value());
    std::uint8_t byte = 0;
    contact.blob = &byte;  // without a size it is the host's
    contact.Clear();
    EXPECT_EQ(contact.blob, &byte);
}

TEST(ContactItem, FindFieldWalksAType) {
    CContactItem contact = ContactOf("100=a|5=b|100=c");  // each from one scratch field
    contact.fields.insert(contact.fields.begin(), nullptr);
    std::int32_t index = -5;
    EXPECT_EQ(contact.FindField(100, index)->Data, u"a");
    EXPECT_EQ(index, 2);
    EXPECT_EQ(contact.FindField(100, index)->Data, u"c");
    EXPECT_EQ(index, 4);
    EXPECT_EQ(contact.FindField(100, index), nullptr);
    EXPECT_EQ(index, 4);
    EXPECT_THROW(contact.Field(4), std::out_of_range);
}

TEST(ContactItem, TheNameFieldIsFoundByTypeNotByPlace) {
    const std::pair<std::string_view, std::u16string_view> cases[] = {{"5=full|2=family", u"family"},
                                                                      {"3=middle|2=family|1=given", u"given"},
                                                                      {"5=full|3=middle", u"middle"},
                                                                      {"4=fourth|5=full|5=second", u"full"}};
    for (const auto& [values, name] : cases)
        EXPECT_EQ(ContactOf(values).GetNameField()->Data, name);
    EXPECT_EQ(ContactOf("4=fourth|100=1").GetNameField(), nullptr);
}

TEST(ContactFieldTypes, FoundByIdWithACaptionOfTheirOwn) {
    std::set<std::string_view> captions;
    for (const ContactFieldType& row : kContactFieldTypes) {
        EXPECT_EQ(FindContactFieldType(row.id), &row) << row.name;
        EXPECT_TRUE(captions.insert(row.caption).second) << row.caption;
    }
    EXPECT_EQ(captions.size(), 69U);
    for (const std::int32_t id : {INT32_MIN, 0, 6, 2003, INT32_MAX})
        EXPECT_EQ(FindContactFieldType(id), nullptr);
    EXPECT_EQ(ContactFieldCaption(-1), "type -1");
}
