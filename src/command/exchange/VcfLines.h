#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "command/exchange/VcfProperty.h"
#include "platform/File.h"

namespace orvale {

/// The bytes of a text file. UTF-16, told by a mark or by the zeros of its first character, comes as UTF-8; a mark of
/// UTF-8 is passed over.
class VcfBytes {
 public:
    /// `shownName` is the file as the user named it; what can't be opened ends the work with an error line.
    VcfBytes(const std::filesystem::path& path, const std::string& shownName);

    /// At least one byte unless the file is at its end; good until the next call.
    std::string_view Ahead();
    void Skip(std::size_t count);

    /// Where in the file the next byte stands.
    std::uint64_t Offset() const { return offset_; }

    /// Whether the file says that it is Unicode.
    bool IsUnicode() const { return isUnicode_; }

 private:
    enum class Encoding { kBytes, kLittleEndian, kBigEndian };

    void LookAtMark();
    void FillFromUtf16();

    CFile file_;
    Encoding encoding_ = Encoding::kBytes;
    bool isUnicode_ = false;
    std::uint64_t offset_ = 0;
    std::string converted_;  // of UTF-16
    std::size_t place_ = 0;
    std::u16string units_;  // half a pair that waits for its other half
};

/// A line of a vCard with the lines that continue it. What joins them stands in its text as a mark that the file's own
/// text can't hold.
struct VcfLine {
    static constexpr char kFold = '\n';   ///< a line end that is none of the text; a blank behind it tells a fold
    static constexpr char kBreak = '\r';  ///< a line end of the value

    std::string text;
    std::size_t number = 0;  ///< of its first line, from 1
    std::uint64_t start = 0;
};

/// The lines of a vCard file. They end in CR LF, LF or CR and continue by a blank at the front of the next one, by a
/// "=" at the end of quoted-printable, by base64 alone on a line, and by a line that isn't one of a card: without a
/// colon.
class VcfLines {
 public:
    /// `isWanted` tells of the front of a long line whether the rest of it is needed; the rest is dropped otherwise.
    VcfLines(const std::filesystem::path& path, const std::string& shownName, bool (*isWanted)(std::string_view front));

    /// The next line that isn't empty; false at the end.
    bool Next(VcfLine& line);

    /// Where the last line ends with what continues it.
    std::uint64_t End() const { return end_; }

    bool IsUnicode() const { return bytes_.IsUnicode(); }

 private:
    enum class Join { kNone, kFold, kSoftBreak, kBase64, kBreak };

    // What the lines that come next are judged by; each is found out once, so that a line of many pieces costs no more
    // for each.
    struct Judged {
        char last = 0;  // its last byte that is no blank
        bool hasColon = false;
        std::optional<VcfEncoding> encoding;
        bool isWanted = true;
        bool isLong = false;
    };

    static constexpr std::size_t kFront = 64 * 1024;  // of a line, before it is known whether it is wanted

    bool LookAtNext();
    Join JoinOf(const std::string& text, Judged& judged);
    void Judge(const std::string& text, Judged& judged);
    void TakeRest(std::string* text, char& last);
    bool TakePiece(std::string* text, std::size_t most, char& last);

    VcfBytes bytes_;
    bool (*isWanted_)(std::string_view front);
    std::string next_;  // the line that was looked at, up to kFront bytes
    bool hasNext_ = false;
    bool isWhole_ = true;  // the line that was looked at is there with its end
    bool nextHasColon_ = false;
    char nextLast_ = 0;  // its last byte that is no blank
    std::uint64_t nextStart_ = 0;
    std::size_t nextNumber_ = 0;
    bool afterReturn_ = false;  // the last line ended in CR, a LF of which may follow
    std::uint64_t end_ = 0;
};

}  // namespace orvale
