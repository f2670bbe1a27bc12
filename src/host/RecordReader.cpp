#include "host/RecordReader.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "platform/File.h"
#include "platform/Text.h"

namespace orvale {
namespace {

[[noreturn]] void FailReading() {
    throw std::runtime_error("can't be read");
}

// Whether only white space stands behind an offset.
bool OnlyWhiteSpaceFrom(const std::filesystem::path& path, std::uint64_t offset) {
    std::ifstream in(path, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(offset));
    for (char c = 0; in.get(c);)
        if (std::strchr(" \t\r\n\v\f", c) == nullptr || c == '\0') return false;
    if (!in.eof()) FailReading();
    return true;
}

// More contacts than a document holds: how often one begins in its text, whether its characters take one byte or two,
// and some that an entity may make of one. A reader that asks more often than that costs the file's length squared.
std::size_t MostContacts(const std::filesystem::path& path) {
    constexpr std::string_view kContact = "<contact";
    constexpr std::string_view kEntity = "<!entity";
    constexpr std::size_t kByEntities = 1000;
    CFile in;
    if (in.Open(FromUtf8(path.native()).c_str(), CFile::kModeRead, nullptr) == 0) FailReading();
    std::size_t count = 0;
    bool declares = false;
    std::string tag;  // what was read of one, as far as it could be one of the two
    for (; !in.AtEnd(); in.Skip(in.Ahead().size())) {
        const std::string_view block = in.Ahead();
        for (std::size_t i = 0; i < block.size(); ++i) {
            if (tag.empty()) i = std::min(block.find('<', i), block.size());
            if (i == block.size()) break;
            if (block[i] == '\0') continue;
            if (block[i] == '<') tag.clear();
            tag.push_back(block[i] >= 'A' && block[i] <= 'Z' ? static_cast<char>(block[i] + 32) : block[i]);
            if (tag == kContact) ++count;
            declares = declares || tag == kEntity;
            if (!kContact.starts_with(tag) && !kEntity.starts_with(tag)) tag.clear();
        }
    }
    return declares ? count + kByEntities : count;
}

// Where a record of the native SMS file ends by its own lengths, each of which stands before its text.
std::uint64_t EndOfSmsRecord(const std::filesystem::path& path, std::uint64_t start) {
    std::ifstream in(path, std::ios::binary);
    std::uint64_t offset = start + 3 * 4;
    for (int text = 0; text < 4; ++text) {
        unsigned char bytes[4] = {};
        in.seekg(static_cast<std::streamoff>(offset));
        in.read(reinterpret_cast<char*>(bytes), sizeof bytes);
        const std::uint32_t length =
            bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
        offset += 4 + (length <= INT32_MAX ? length : 0);  // a negative length is an empty text
    }
    return offset;
}

}  // namespace

RecordReader::RecordReader(RecordFile& file)
    : file_(file), format_(Info(file.Format())), length_(file.Length()), wholeEnd_(file.Position()) {
    if (format_.endRule == EndRule::kAskAgain) mostZeros_ = MostContacts(file.Path()) + 1;
}

std::optional<std::uint64_t> RecordReader::BrokenAt() const {
    const EndRule rule = format_.endRule;
    if (rule == EndRule::kNone || rule == EndRule::kOneRecord || wholeEnd_ >= length_) return std::nullopt;
    if (rule == EndRule::kWhiteSpaceLeft && OnlyWhiteSpaceFrom(file_.Path(), wholeEnd_)) return std::nullopt;
    return wholeEnd_;
}

// The reader of native SMS gives a record that the file cuts off as if it were whole, its texts cut or empty. Only the
// last record can be one: its lengths then lead beyond the file, or it took other bytes than its values need.
bool RecordReader::IsCutRecord(const CSMSItem& sms) const {
    const std::uint64_t end = file_.Position();
    if (format_.endRule != EndRule::kLastRecordSize || end < length_) return false;
    constexpr std::size_t kNumbers = 7 * 4;  // three values and four lengths
    const std::size_t units = sms.name.size() + sms.phonenumber.size() + sms.content.size() + sms.time.size();
    return end - wholeEnd_ != kNumbers + 2 * units || EndOfSmsRecord(file_.Path(), wholeEnd_) != end;
}

// A suite gives 0 at its end and where memory ran out. After that its object does nothing any more.
void RecordReader::RequireEnd() {
    if (IsSuite(format_.profile) && !file_.ReadHeader()) FailReading();
}

}  // namespace orvale
