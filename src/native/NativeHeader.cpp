#include "native/NativeHeader.h"

#include <algorithm>

namespace orvale {

void NativeHeader::Load(CFileObject& file) {
    file.Seek(0, CFile::kBegin);
    bytes_.fill('\0');
    const auto size = static_cast<std::uint32_t>(layout_.Size());
    Require(file.CFile::Read(bytes_.data(), size) == size, "the file is shorter than its header");
}

void NativeHeader::Fill(CFileObject& file) {
    const auto put = [&](std::size_t offset, std::string_view text) {
        std::copy(text.begin(), text.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
        bytes_.at(offset + text.size()) = '\0';
    };
    put(0, layout_.flag);
    if (layout_.dateOffset != 0) put(layout_.dateOffset, file.ToNarrow(file.GetDateStamp()));
    for (std::size_t i = 0; i < 4; ++i)
        bytes_.at(layout_.versionOffset + i) = static_cast<char>(layout_.version >> 8 * i & 0xFF);
}

void NativeHeader::Store(CFileObject& file) const {
    file.Seek(0, CFile::kBegin);
    file.CFile::Write(bytes_.data(), static_cast<std::uint32_t>(layout_.Size()));
}

VerifyCode NativeHeader::Judge(bool opened) const {
    if (!opened) return VERIFY_NOT_OPENED;
    if (TextAt(0).empty()) return VERIFY_NOT_READ_HEADER;
    return HasRightFlag() ? VERIFY_OK : VERIFY_WRONG_FLAG;
}

void NativeHeader::Log(CFileObject& file, std::u16string_view head) const {
    if (!LogEnabled()) return;
    LogFormat(u"%s : FileFlag[%s]\r\n", head, file.ToWide(TextAt(0)));
    LogFormat(u"%s : Version[%d]\r\n", head, Version());
    if (layout_.dateOffset != 0) LogFormat(u"%s : Time[%s]\r\n", head, file.ToWide(TextAt(layout_.dateOffset)));
}

std::string_view NativeHeader::TextAt(std::size_t offset) const {
    const std::string_view field(bytes_.data() + offset, kTextWidth);
    return field.substr(0, field.find('\0'));
}

std::int32_t NativeHeader::Version() const {
    std::uint32_t version = 0;
    for (std::size_t i = 4; i-- > 0;)
        version = version << 8 | static_cast<unsigned char>(bytes_.at(layout_.versionOffset + i));
    return static_cast<std::int32_t>(version);
}

std::u16string_view VerifyReason(VerifyCode code) {
    switch (code) {
        case VERIFY_NOT_OPENED:
            return u"Not opened";
        case VERIFY_NOT_READ_HEADER:
            return u"Not read fileheader";
        case VERIFY_WRONG_FLAG:
            return u"Wrong file flag";
        case VERIFY_WRONG_SIZE:
            return u"Wrong file size";
        case VERIFY_OK:
            break;
    }
    return u"Succeeded";
}

}  // namespace orvale
