#include "command/files/RecordInput.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "command/console/CommandError.h"
#include "command/files/Profiles.h"
#include "command/scan/ColumnScan.h"
#include "platform/Text.h"

namespace orvale {
namespace {

// Whether only white space stands behind an offset.
bool OnlyWhiteSpaceFrom(const std::filesystem::path& path, std::uint64_t offset) {
    std::ifstream in(path, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(offset));
    for (char c = 0; in.get(c);)
        if (std::strchr(" \t\r\n\v\f", c) == nullptr || c == '\0') return false;
    if (!in.eof()) FailFile(path.string(), "", "can't be read");
    return true;
}

// More contacts than a document holds: how often one begins in its text, whether its characters take one byte or two,
// and some that an entity may make of one. A reader that asks more often than that costs the file's length squared.
std::size_t MostContacts(const std::string& name) {
    constexpr std::string_view kContact = "<contact";
    constexpr std::string_view kEntity = "<!entity";
    constexpr std::size_t kByEntities = 1000;
    CFile in;
    if (in.Open(FromUtf8(name).c_str(), CFile::kModeRead, nullptr) == 0) FailFile(name, "", "can't be read");
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

RecordInput::RecordInput(const LoadedLibrary& library, const InputName& input) : input_(input) {
    if (input.format->own != nullptr) {
        own_ = input.format->own->open(input.path, input.name);
        profile_ = own_->GetProfile();
        return;
    }
    try {
        file_.emplace(library, *input.format->type);
        file_->Open(input.path, OpenMode::kRead);
        if (input.format->profile == ProfileShape::kColumns) {
            profile_ = ColumnsOf(input);
            file_->Slots().SetProfile(AddressOf(profile_));
            profile_.reset();  // the captions of a file aren't a profile that it carries
        }
    } catch (const std::system_error& error) {
        const bool notXml = IsSuite(*input.format) && error.code() == std::errc::invalid_argument;
        FailFile(input.name, "",
                 notXml ? "no well-formed XML document, or one beyond the limits" : SystemReason(error.code()));
    } catch (const std::runtime_error& error) {
        FailFile(input.name, "", error.what());
    }
    headerRead_ = file_->ReadHeader();
    if (headerRead_) profile_ = CopyOfProfile(file_->Slots(), input.format->profile);
    verifyCode_ = file_->Verify();
    wholeEnd_ = file_->Position();
    length_ = file_->Length();
    if (input.format->endRule == EndRule::kAskAgain) mostZeros_ = MostContacts(input.path) + 1;
}

// The reader of native SMS gives a record that the file cuts off as if it were whole, its texts cut or empty. Only the
// last record can be one: its lengths then lead beyond the file, or it took other bytes than its values need.
bool RecordInput::IsCutRecord(const CSMSItem& sms) const {
    const std::uint64_t end = file_->Position();
    if (input_.format->endRule != EndRule::kLastRecordSize || end < length_) return false;
    constexpr std::size_t kNumbers = 7 * 4;  // three values and four lengths
    const std::size_t units = sms.name.size() + sms.phonenumber.size() + sms.content.size() + sms.time.size();
    return end - wholeEnd_ != kNumbers + 2 * units || EndOfSmsRecord(input_.path, wholeEnd_) != end;
}

// A suite gives 0 at its end and where memory ran out. After that its object does nothing any more.
void RecordInput::RequireEnd() {
    if (headerRead_ && IsSuite(*input_.format) && !file_->ReadHeader())
        FailFile(input_.name, "record " + std::to_string(count_ + 1), "can't be read");
}

std::optional<std::uint64_t> RecordInput::BrokenAt() {
    if (own_) return own_->BrokenAt();
    const EndRule rule = input_.format->endRule;
    if (!file_ || !headerRead_ || rule == EndRule::kNone || rule == EndRule::kOneRecord) return std::nullopt;
    if (wholeEnd_ >= length_) return std::nullopt;
    if (rule == EndRule::kWhiteSpaceLeft && OnlyWhiteSpaceFrom(input_.path, wholeEnd_)) return std::nullopt;
    return wholeEnd_;
}

std::string PlaceOfDamage(const RecordInput& input, std::uint64_t offset) {
    return "record " + std::to_string(input.Count() + 1) + ", byte " + std::to_string(offset);
}

namespace {

const FormatRow& ReadableFormat(const std::string& name) {
    const FormatRow& format = FormatOfName(name);
    if (!format.Reads()) FailUsage("the format " + std::string(format.name) + " is only written, never read");
    return format;
}

InputName ResolveFile(const std::string& name, const std::string& formatName) {
    if (!formatName.empty()) return {name, name, &ReadableFormat(formatName), true};
    const FormatRow* const format = DetectFormat(name);
    if (format != nullptr && !format->Reads())
        FailFile(name, "", "the format " + std::string(format->name) + " is only written, never read");
    if (format == nullptr) {
        FailFile(name, "", "not recognised as any format");
    }
    return {name, name, format, false};
}

// Whether one name comes before another, runs of digits by their value.
bool NameComesBefore(const std::string& a, const std::string& b) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (!isDigit(a[i]) || !isDigit(b[j])) {
            if (a[i] != b[j]) return a[i] < b[j];
            ++i;
            ++j;
            continue;
        }
        const auto run = [&](const std::string& text, std::size_t& place) {
            const std::size_t first = std::min(text.find_first_not_of('0', place), text.size());
            place = first;
            while (place < text.size() && isDigit(text[place]))
                ++place;
            return std::string_view(text).substr(first, place - first);
        };
        const std::string_view left = run(a, i);
        const std::string_view right = run(b, j);
        if (left.size() != right.size()) return left.size() < right.size();
        if (left != right) return left < right;
    }
    return a.size() - i != b.size() - j ? a.size() - i < b.size() - j : a < b;
}

void ResolveFolder(const std::string& name, const std::string& formatName, std::vector<InputName>& inputs) {
    const FormatRow& format = formatName.empty() ? *FormatOfFolders() : FormatOfName(formatName);
    if (format.endRule != EndRule::kOneRecord) FailFile(name, "", "is a folder");
    const auto isOne = [&](const std::filesystem::path& path) {
        if (DetectFormat(path) == &format) return true;
        // One that a format of the command's own reads better is still one.
        const FormatInfo* const info = formatName.empty() ? DetectByContent(path) : nullptr;
        return info != nullptr && info->format == format.type;
    };
    std::vector<std::string> files;
    std::vector<std::string> others;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(name, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->path().filename().string().starts_with('.') || !entry->is_regular_file(ignored)) continue;
        if (isOne(entry->path()))
            files.push_back(entry->path().string());
        else
            others.push_back(entry->path().string());
    }
    if (error) FailFile(name, "", error.message());
    if (files.empty()) FailFile(name, "", "is a folder without a file of the format " + std::string(format.name));
    for (const std::string& other : others)
        TellUser(ErrorLine(other, "", "passed over, for it is no file of the format " + std::string(format.name)));
    std::sort(files.begin(), files.end(), NameComesBefore);
    for (const std::string& file : files)
        inputs.push_back({file, file, formatName.empty() ? DetectFormat(file) : &format, !formatName.empty()});
}

InputName SpoolStandardInput(const std::string& formatName) {
    constexpr const char* kName = "standard input";
    if (formatName.empty()) FailUsage("nothing tells the format of standard input; --format, or --from, names it");
    try {
        const auto spool = std::make_shared<TemporaryFile>();
        spool->TakeStandardInput();
        return {kName, spool->Path(), &FormatOfName(formatName), true, nullptr, spool};
    } catch (const std::system_error& error) {
        FailFile(kName, "temporary file", SystemReason(error.code()));
    }
}

}  // namespace

void RequireOneStandardInput(std::span<const std::string> names) {
    if (std::count(names.begin(), names.end(), kStandardStream) > 1) FailUsage("standard input can be read only once");
}

std::vector<InputName> ResolveInputs(const std::vector<std::string>& names, const std::string& formatName) {
    if (!formatName.empty()) ReadableFormat(formatName);  // a wrong word is told before a wrong file
    RequireOneStandardInput(names);
    std::vector<InputName> inputs;
    for (const std::string& name : names) {
        if (name == kStandardStream) {
            inputs.push_back(SpoolStandardInput(formatName));
            continue;
        }
        std::error_code error;
        const std::filesystem::file_status status = std::filesystem::status(name, error);
        if (!std::filesystem::exists(status)) FailFile(name, "", error ? error.message() : "no such file");
        if (std::filesystem::is_directory(status))
            ResolveFolder(name, formatName, inputs);
        else if (!std::filesystem::is_regular_file(status))
            FailFile(name, "", "is no regular file");
        else
            inputs.push_back(ResolveFile(name, formatName));
    }
    return inputs;
}

std::string PassedOverText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " record could not be read and was passed over"
                                               : " records could not be read and were passed over");
}

std::string HeaderReason(const RecordInput& input) {
    std::string reason = "its header can't be read";
    if (input.Verify() != VERIFY_OK) reason += " (" + VerifyName(input.Verify()) + ")";
    const bool hasColumns = input.Name().format->profile == ProfileShape::kColumns;
    const std::string why = hasColumns ? WhyNoCaptions(input.Name().path) : "";
    return why.empty() ? reason : reason + ": " + why;
}

void RequireHeader(const RecordInput& input) {
    if (!input.HeaderRead()) FailFile(input.Name().name, "", HeaderReason(input));
}

void RequireReadable(const RecordInput& input) {
    RequireHeader(input);
    const std::string& name = input.Name().name;
    if (input.Verify() == VERIFY_OK) return;
    const std::string code = VerifyName(input.Verify());
    const std::string reason =
        "no whole file of the format " + std::string(input.Name().format->name) + " (" + code + ")";
    if (!input.Name().formatNamed) FailFile(name, "", reason);
    TellUser(ErrorLine(name, "", reason));
}

}  // namespace orvale
