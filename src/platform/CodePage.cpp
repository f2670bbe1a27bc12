#include "platform/CodePage.h"

#include <iconv.h>
#include <langinfo.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "platform/Text.h"

namespace orvale {
namespace {

constexpr CodePage kUtf8{65001, "UTF-8", nullptr};

// Number, iconv's name, the locales' name. All are supersets of ASCII, and their bytes have no shift states.
constexpr CodePage kPages[] = {
    kUtf8,
    {437, "CP437", nullptr},
    {850, "CP850", nullptr},
    {852, "CP852", nullptr},
    {866, "CP866", nullptr},
    {874, "CP874", "TIS-620"},
    {932, "CP932", "SHIFT_JIS"},
    {936, "CP936", "GBK"},
    {949, "CP949", "UHC"},
    {950, "CP950", "BIG5"},
    {1250, "CP1250", nullptr},
    {1251, "CP1251", nullptr},
    {1252, "CP1252", nullptr},
    {1253, "CP1253", nullptr},
    {1254, "CP1254", nullptr},
    {1255, "CP1255", nullptr},
    {1256, "CP1256", nullptr},
    {1257, "CP1257", nullptr},
    {1258, "CP1258", nullptr},
    {20866, "KOI8-R", nullptr},
    {21866, "KOI8-U", nullptr},
    {28591, "ISO-8859-1", nullptr},
    {28592, "ISO-8859-2", nullptr},
    {28593, "ISO-8859-3", nullptr},
    {28594, "ISO-8859-4", nullptr},
    {28595, "ISO-8859-5", nullptr},
    {28596, "ISO-8859-6", nullptr},
    {28597, "ISO-8859-7", nullptr},
    {28598, "ISO-8859-8", nullptr},
    {28599, "ISO-8859-9", nullptr},
    {28603, "ISO-8859-13", nullptr},
    {28605, "ISO-8859-15", nullptr},
    {51932, "EUC-JP", nullptr},
    {51936, "GB2312", nullptr},
    {51949, "EUC-KR", nullptr},
    {54936, "GB18030", nullptr},
};

// 16-bit units in the machine's own order.
constexpr const char* kWideName = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

const CodePage& DecideCodePage() {
    if (const char* number = std::getenv("ORVALE_CODEPAGE")) {
        char* end = nullptr;
        const long value = std::strtol(number, &end, 10);
        const CodePage* page = end != number && *end == '\0' && value == static_cast<std::int32_t>(value)
                                   ? FindCodePage(static_cast<std::int32_t>(value))
                                   : nullptr;
        if (page != nullptr) return *page;
    }
    const CodePage* const page = FindCodePageOfCodeset(nl_langinfo(CODESET));
    return page != nullptr ? *page : kUtf8;
}

// One call of iconv; its error, or 0. Where nothing is left to convert it fetches what the conversion still holds (some
// pages build a character from two) and readies the handle for the next text; `more` tells when that is done.
int Step(void* handle, char*& from, std::size_t& left, char*& to, std::size_t& room, bool& more) {
    const bool last = left == 0;
    const std::size_t result = iconv(handle, last ? nullptr : &from, &left, &to, &room);
    const int error = result == static_cast<std::size_t>(-1) ? errno : 0;
    more = !last || error == E2BIG;
    return error;
}

}  // namespace

bool CodePage::IsLeadByte(unsigned char byte) const {
    switch (number) {
        case 932:
            return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        case 936:
        case 949:
        case 950:
            return byte >= 0x81 && byte <= 0xFE;
        default:
            return false;
    }
}

const CodePage* FindCodePage(std::int32_t number) {
    for (const CodePage& page : kPages)
        if (page.number == number) return &page;
    return nullptr;
}

const CodePage& ThreadCodePage() {
    static std::atomic<const CodePage*> decided{nullptr};
    if (const CodePage* page = decided.load(std::memory_order_acquire)) return *page;
    const CodePage* first = nullptr;
    const CodePage* mine = &DecideCodePage();
    return decided.compare_exchange_strong(first, mine) ? *mine : *first;
}

const CodePage* FindCodePageOfCodeset(std::string_view codeset) {
    for (const CodePage& page : kPages)
        if (codeset == page.iconvName || (page.localeName != nullptr && codeset == page.localeName)) return &page;
    return nullptr;
}

TextConverter::Direction::~Direction() {
    if (handle_ != nullptr) iconv_close(handle_);
}

void* TextConverter::Direction::Handle(const char* to, const char* from) {
    if (handle_ == nullptr) {
        void* const opened = iconv_open(to, from);
        if (opened == reinterpret_cast<iconv_t>(-1))  // NOLINT(performance-no-int-to-ptr): iconv's own word for failure
            throw std::system_error(errno, std::generic_category(), to);
        handle_ = opened;
    }
    return handle_;
}

TextConverter::~TextConverter() = default;

std::string TextConverter::ToNarrow(std::u16string_view text) {
    text = text.substr(0, FindUnit(text, u'\0'));
    if (page_.HoldsAll()) return ToUtf8(text, &replaced_, u'?');
    const std::size_t ascii = AsciiPrefix(text);
    std::string out(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(ascii));
    text.remove_prefix(ascii);
    if (text.empty()) return out;

    void* const handle = narrow_.Handle(page_.iconvName, kWideName);
    auto* from = const_cast<char*>(reinterpret_cast<const char*>(text.data()));
    std::size_t left = text.size() * sizeof(char16_t);
    char buffer[1024];
    for (bool more = true; more;) {
        char* to = buffer;
        std::size_t room = sizeof buffer;
        const int error = Step(handle, from, left, to, room, more);
        out.append(buffer, sizeof buffer - room);
        if (error == 0 || error == E2BIG) continue;
        // A character that the page lacks, or half of one.
        char16_t units[2] = {};
        std::memcpy(units, from, std::min(left, sizeof units));
        const bool pair = units[0] >= 0xD800 && units[0] < 0xDC00 && units[1] >= 0xDC00 && units[1] < 0xE000;
        const std::size_t size = (pair ? 2 : 1) * sizeof(char16_t);
        from += size;
        left -= size;
        out.push_back('?');
        ++replaced_;
    }
    return out;
}

std::u16string TextConverter::ToWide(std::string_view bytes) {
    std::u16string out;
    AssignWide(bytes, out);
    return out;
}

void TextConverter::AssignWide(std::string_view bytes, std::u16string& out) {
    out.resize(PutWide(bytes, out, 0));
}

std::size_t TextConverter::PutWide(std::string_view bytes, std::u16string& out, std::size_t place) {
    if (out.size() < place + bytes.size()) out.resize(place + bytes.size());
    return WidenAscii(bytes, out.data() + place) ? place + bytes.size() : PutWideBeyondAscii(bytes, out, place);
}

std::size_t TextConverter::PutWideBeyondAscii(std::string_view bytes, std::u16string& out, std::size_t place) {
    bytes = bytes.substr(0, bytes.find('\0'));
    if (page_.HoldsAll()) return place + WidenUtf8(bytes, out.data() + place, &replaced_);
    std::size_t ascii = AsciiPrefix(bytes);
    if (ascii != 0 && ascii < bytes.size()) --ascii;  // the letter under what may be an accent that joins it
    out.resize(place + ascii);
    bytes.remove_prefix(ascii);
    if (bytes.empty()) return out.size();

    void* const handle = wide_.Handle(kWideName, page_.iconvName);
    auto* from = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    bool more = true;
    const auto step = [&](std::size_t& count) {
        char16_t buffer[1024];
        char* to = reinterpret_cast<char*>(buffer);
        std::size_t room = sizeof buffer;
        const int error = Step(handle, from, count, to, room, more);
        out.append(buffer, (sizeof buffer - room) / sizeof(char16_t));
        return error;
    };
    while (more) {
        const int error = step(left);
        if (error == 0 || error == E2BIG) continue;
        std::size_t none = 0;
        step(none);  // what the conversion still holds comes first
        more = true;
        ++from;  // a byte that is no character, or the first of one that is cut off
        --left;
        out.push_back(u'\xFFFD');
        ++replaced_;
    }
    return out.size();
}

std::string ToNarrow(std::u16string_view text) {
    return TextConverter().ToNarrow(text);
}
std::u16string ToWide(std::string_view bytes) {
    return TextConverter().ToWide(bytes);
}

}  // namespace orvale
