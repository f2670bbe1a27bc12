#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The type ids of contact fields: id, name, and what a person calls it. The formats share the numbers; no name is
// stored in a file. 1 to 99 are names, 100 to 121 telephone numbers, 1000 and on emails, 1500 to 1502 web addresses,
// 2000 to 2049 addresses. A field may hold any other number too.
#define ORVALE_CONTACT_FIELD_TYPES(X)                      \
    X(CF_GIVEN_NAME, 1, "given name")                      \
    X(CF_FAMILY_NAME, 2, "family name")                    \
    X(CF_MIDDLE_NAME, 3, "middle name")                    \
    X(CF_NAME_4, 4, "fourth name")                         \
    X(CF_FULL_NAME, 5, "full name")                        \
    X(CF_TEL_WORK_VOICE, 100, "work phone")                \
    X(CF_TEL_WORK_VOICE_2, 101, "work phone 2")            \
    X(CF_TEL_HOME_VOICE, 102, "home phone")                \
    X(CF_TEL_HOME, 103, "home phone 2")                    \
    X(CF_TEL_CELL_VOICE, 104, "mobile phone")              \
    X(CF_TEL_CELL, 105, "mobile phone 2")                  \
    X(CF_TEL_PAGER_VOICE, 106, "pager")                    \
    X(CF_TEL_OTHER, 107, "other phone")                    \
    X(CF_TEL_VOICE, 108, "phone")                          \
    X(CF_TEL_PAGER, 109, "pager 2")                        \
    X(CF_TEL_FAX, 110, "fax")                              \
    X(CF_TEL_HOME_FAX, 111, "home fax")                    \
    X(CF_TEL_WORK_FAX, 112, "work fax")                    \
    X(CF_TEL_CALLBACK, 113, "callback phone")              \
    X(CF_TEL_CAR, 114, "car phone")                        \
    X(CF_TEL_ISDN, 115, "ISDN")                            \
    X(CF_TEL_COMPANY, 116, "company phone")                \
    X(CF_TEL_ASSISTANT, 117, "assistant's phone")          \
    X(CF_TEL_PREF, 118, "preferred phone")                 \
    X(CF_TEL_RADIO, 119, "radio phone")                    \
    X(CF_TELEX, 120, "telex")                              \
    X(CF_TEL_TTYTDD, 121, "text phone")                    \
    X(CF_EMAIL_PREF, 1000, "email")                        \
    X(CF_EMAIL_2, 1001, "email 2")                         \
    X(CF_EMAIL_3, 1002, "email 3")                         \
    X(CF_URL_1, 1500, "web address")                       \
    X(CF_URL_2, 1501, "web address 2")                     \
    X(CF_URL_3, 1502, "web address 3")                     \
    X(CF_ADR_HOME, 2000, "home address")                   \
    X(CF_ADR_WORK, 2001, "work address")                   \
    X(CF_ADR_HOME_STREET, 2002, "home street")             \
    X(CF_ADR_HOME_CITY, 2004, "home city")                 \
    X(CF_ADR_HOME_REGION, 2005, "home region")             \
    X(CF_ADR_HOME_POSTCODE, 2006, "home postcode")         \
    X(CF_ADR_HOME_REGION_2, 2007, "home region 2")         \
    X(CF_ADR_HOME_COUNTRY, 2008, "home country")           \
    X(CF_ADR_WORK_STREET, 2010, "work street")             \
    X(CF_ADR_WORK_CITY, 2012, "work city")                 \
    X(CF_ADR_WORK_REGION, 2013, "work region")             \
    X(CF_ADR_WORK_POSTCODE, 2014, "work postcode")         \
    X(CF_ADR_WORK_REGION_2, 2015, "work region 2")         \
    X(CF_ADR_WORK_COUNTRY, 2016, "work country")           \
    X(CF_ADR_POSTAL_STREET, 2032, "postal street")         \
    X(CF_ADR_POSTAL_CITY, 2034, "postal city")             \
    X(CF_ADR_POSTAL_REGION, 2035, "postal region")         \
    X(CF_ADR_POSTAL_POSTCODE, 2036, "postal postcode")     \
    X(CF_ADR_POSTAL_REGION_2, 2037, "postal region 2")     \
    X(CF_ADR_POSTAL_COUNTRY, 2038, "postal country")       \
    X(CF_ADR_POSTAL, 2049, "postal address")               \
    X(CF_NOTE, 3002, "note")                               \
    X(CF_ADR_GENERAL, 4000, "general address")             \
    X(CF_ORG_UNIT, 4002, "department")                     \
    X(CF_BIRTHDAY, 4003, "birthday")                       \
    X(CF_ORG_NAME, 4004, "company")                        \
    X(CF_NICKNAME, 4005, "nickname")                       \
    X(CF_LABEL_WORK, 4006, "work label")                   \
    X(CF_LABEL_HOME, 4007, "home label")                   \
    X(CF_GENDER, 4008, "gender")                           \
    X(CF_ROLE, 4009, "role")                               \
    X(CF_NAME_PREFIX, 4010, "name prefix")                 \
    X(CF_NAME_SUFFIX, 4011, "name suffix")                 \
    X(CF_ADR_WORK_EXTENDED, 4012, "extended work address") \
    X(CF_ORG, 4032, "organisation")                        \
    X(CF_TITLE, 4035, "title")

/// The ids by name.
enum ContactFieldTypeId : std::int32_t {
#define ORVALE_ID(name, id, caption) name = id,
    ORVALE_CONTACT_FIELD_TYPES(ORVALE_ID)
#undef ORVALE_ID
};

/// One type of contact field.
struct ContactFieldType {
    std::int32_t id;
    std::string_view name;     ///< "CF_GIVEN_NAME"
    std::string_view caption;  ///< "given name"; no two are alike
};

/// All types that have a name, in the order of their ids.
inline constexpr ContactFieldType kContactFieldTypes[] = {
#define ORVALE_ROW(name, id, caption) {id, #name, caption},
    ORVALE_CONTACT_FIELD_TYPES(ORVALE_ROW)
#undef ORVALE_ROW
};

/// The row of an id, or null for a number without a name.
const ContactFieldType* FindContactFieldType(std::int32_t id);

/// What a person calls a type: its caption, or "type N".
std::string ContactFieldCaption(std::int32_t id);

/// Whether an id belongs to the names, 1 to 99.
constexpr bool IsNameType(std::int32_t id) {
    return id >= 1 && id <= 99;
}
