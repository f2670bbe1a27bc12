#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame/FileObject.h"

namespace orvale {

/// What tells one native header from another. All begin with ten bytes for the flag, eight ASCII characters and zeros.
struct NativeHeaderLayout {
    std::string_view flag;
    std::size_t dateOffset;     ///< of ten bytes for the day of writing, "20100726" and zeros; 0 if there is none
    std::size_t versionOffset;  ///< of the signed 32-bit version, the header's last item
    std::int32_t version;       ///< the one that is written; none is refused

    constexpr std::size_t Size() const { return versionOffset + 4; }
};

/// The header of a native file as it was last read or written.
class NativeHeader {
 public:
    explicit NativeHeader(const NativeHeaderLayout& layout) : layout_(layout) {}

    /// Reads the header from the start of the file. Fails the operation where fewer bytes arrive; those stay.
    void Load(CFileObject& file);

    /// Fills in flag, version and today's date. Bytes behind their ends stay as they were.
    void Fill(CFileObject& file);

    /// Writes the header at the start of the file.
    void Store(CFileObject& file) const;

    /// The code for a file with this header: not opened, header not read, wrong flag, or fine.
    VerifyCode Judge(bool opened) const;

    bool HasRightFlag() const { return Flag() == layout_.flag; }
    bool HasDate() const { return layout_.dateOffset != 0; }

    std::string_view Flag() const { return TextAt(0); }
    std::string_view Date() const { return TextAt(layout_.dateOffset); }
    std::int32_t Version() const;

 private:
    std::string_view TextAt(std::size_t offset) const;

    const NativeHeaderLayout& layout_;
    std::array<char, 24> bytes_{};  // the longest header; the shorter uses its front
};

}  // namespace orvale
