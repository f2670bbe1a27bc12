#include "native/NativeHeader.h"

#include <algorithm>

#include "frame/LittleEndian.h"
#include "frame/Operation.h"

namespace orvale {

void NativeHeader::Load(CFileObject& file) {
    file.Seek(0, CFile::kBegin);
    bytes_.fill('\0');
    const auto size = static_cast<std::uint32_t>(layout_.Size());
    Require(file.CFile::Read(bytes_.data(), size) == size, "the file is shorter than its header");
}

void NativeHeader::Fill(CFileObject& file) {
    const auto put = [&](std::size_t offset, std::string_view bytes) {
        std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
    };
    const auto putText = [&](std::size_t offset, std::string_view text) {
        put(offset, text);
        bytes_.at(offset + text.size()) = '\0';
    };
    putText(0, layout_.flag);
    if (HasDate()) putText(layout_.dateOffset, file.ToNarrow(file.GetDateStamp()));
    const auto version = ToLittleEndian(static_cast<std::uint32_t>(layout_.version));
    put(layout_.versionOffset, {version.data(), version.size()});
}

void NativeHeader::Store(CFileObject& file) const {
    file.Seek(0, CFile::kBegin);
    file.CFile::Write(bytes_.data(), static_cast<std::uint32_t>(layout_.Size()));
}

VerifyCode NativeHeader::Judge(bool opened) const {
    if (!opened) return VERIFY_NOT_OPENED;
    if (Flag().empty()) return VERIFY_NOT_READ_HEADER;
    return HasRightFlag() ? VERIFY_OK : VERIFY_WRONG_FLAG;
}

std::int32_t NativeHeader::Version() const {
    return static_cast<std::int32_t>(FromLittleEndian<std::uint32_t>(bytes_.data() + layout_.versionOffset));
}

std::string_view NativeHeader::TextAt(std::size_t offset) const {
    constexpr std::size_t kTextWidth = 10;
    const std::string_view field(bytes_.data() + offset, kTextWidth);
    return field.substr(0, field.find('\0'));
}

}  // namespace orvale
