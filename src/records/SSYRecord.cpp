#include "records/SSYRecord.h"

#include <iterator>

namespace orvale {
namespace {

// What the numbers of a record's pairs mean; the items around the pairs have no number in the file.
constexpr std::int32_t kTypes[] = {
    CF_TEL_WORK_VOICE,    // 0
    CF_TEL_WORK_FAX,      // 1
    CF_TEL_WORK_VOICE_2,  // 2
    CF_TEL_CALLBACK,      // 3
    CF_TEL_CAR,           // 4
    CF_TEL_COMPANY,       // 5
    CF_TEL_HOME_VOICE,    // 6
    CF_TEL_HOME,          // 7
    CF_TEL_ISDN,          // 8
    CF_TEL_CELL_VOICE,    // 9
    CF_TEL_VOICE,         // 10
    CF_TEL_FAX,           // 11
    CF_TEL_PAGER_VOICE,   // 12
    CF_TEL_ASSISTANT,     // 13
    CF_TEL_PREF,          // 14
    CF_TEL_HOME_FAX,      // 15
    CF_TEL_RADIO,         // 16
    -1,                   // 17
    -1,                   // 18
    -1,                   // 19
    CF_GIVEN_NAME,        // 20
    CF_FAMILY_NAME,       // 21
    CF_MIDDLE_NAME,       // 22
    CF_NAME_4,            // 23
    CF_FULL_NAME,         // 24
    CF_EMAIL_PREF,        // 25
    CF_URL_1,             // 26
};

}  // namespace

std::int32_t TypeOfSSYNumber(std::int32_t number) {
    return number >= 0 && number < static_cast<std::int32_t>(std::size(kTypes)) ? kTypes[number] : -1;
}

std::u16string TakeSSYItem(std::u16string_view& rest) {
    return Replace(Replace(TakeToken(rest, u","), u"&44", u","), u"&45", u":");
}

}  // namespace orvale
