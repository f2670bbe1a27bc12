#include "frame/ParseString.h"

#include "platform/CodePage.h"
#include "platform/Text.h"

CParseString& CParseString::operator=(std::u16string_view text) {
    std::u16string copy(text);  // the text may be a view of this very object
    text_ = std::move(copy);
    start_ = 0;
    return *this;
}

CParseString& CParseString::operator=(std::string_view bytes) {
    return *this = orvale::ToWide(bytes);
}

std::u16string CParseString::GetNextToken(std::u16string_view delimiter) {
    std::u16string_view rest = Remaining();
    if (delimiter.empty()) return std::u16string(rest);
    std::u16string token(orvale::TakeToken(rest, delimiter));
    start_ = text_.size() - rest.size();
    return token;
}
