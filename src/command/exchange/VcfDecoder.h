#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "command/exchange/VcfProperty.h"
#include "platform/CodePage.h"

namespace orvale {

/// Makes text of values: encodings, charsets, escapes. One for a file.
class VcfDecoder {
 public:
    /// `isUnicode`: the file itself is known to be Unicode, and CHARSET can only speak of quoted-printable and base64.
    explicit VcfDecoder(bool isUnicode) : isUnicode_(isUnicode) {}

    /// How the cards' text is escaped from now on.
    void SetVersion(VcfVersion version) { version_ = version; }

    /// The value in one piece. Line ends become CR LF.
    void Text(const VcfProperty& property, std::u16string& text);

    /// The value's parts, at least one and at most so many; the last takes all that remains. They are the caller's to
    /// take and good until the next call.
    std::span<std::u16string> Parts(const VcfProperty& property, char separator, std::size_t most);

    /// How many bytes were no text in their charset so far, and how many values had a charset that isn't known.
    std::size_t BadBytes() const { return badBytes_; }
    std::size_t UnknownCharsets() const { return unknownCharsets_; }

 private:
    std::string_view Bytes(const VcfProperty& property);
    const CodePage* PageOf(const VcfProperty& property);
    void Assign(std::string_view bytes, const CodePage* page, std::u16string& text);

    bool isUnicode_;
    VcfVersion version_ = VcfVersion::k30;
    std::string bytes_;
    std::vector<std::size_t> plainSeparators_;  // places in bytes_ where quoted-printable hid a ";" or ","
    std::vector<std::u16string> parts_;
    std::map<std::int32_t, std::unique_ptr<TextConverter>> converters_;
    std::size_t badBytes_ = 0;
    std::size_t unknownCharsets_ = 0;
};

}  // namespace orvale
