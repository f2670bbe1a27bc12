#include "host/RecordFile.h"

#include <stdexcept>
#include <string>

#include "platform/AtomicFile.h"
#include "platform/Text.h"

namespace orvale {

RecordFile::RecordFile(const LoadedLibrary& library, FileFormat format)
    : format_(format), isSuite_(IsSuite(Info(format).profile)), object_(library.Create(static_cast<FileType>(format))) {
    if (!object_) throw std::runtime_error("this module doesn't have the format " + std::string(Info(format).name));
}

void RecordFile::Open(const std::filesystem::path& path, OpenMode mode) {
    const std::string& bytes = path.native();
    const std::u16string name = FromUtf8(bytes);
    if (ToUtf8(name) != bytes)  // the boundary takes names as 16-bit text, which holds no other bytes
        throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence), "the name isn't UTF-8");
    const std::uint32_t flags =
        mode == OpenMode::kRead ? static_cast<std::uint32_t>(CFile::kModeRead) : CFile::kCreateReadWrite;
    path_ = path;
    unsaved_ = false;
    if (object_->Open(name.c_str(), &flags) != 0) return;
    // The slot tells no reason; the stream below it does.
    CFile& stream = *object_;
    std::error_code reason = std::make_error_code(std::errc::invalid_argument);
    if (stream.Open(name.c_str(), flags | CFile::kShareExclusive | CFile::kModeNoTruncate, &reason) != 0)
        object_->Close();
    throw std::system_error(reason);
}

// The slot has no result. A save puts another file in the place of what was there.
bool RecordFile::Close() {
    const auto before = unsaved_ ? IdentityOf(path_.native()) : std::nullopt;
    object_->Close();
    if (!unsaved_) return true;
    const auto after = IdentityOf(path_.native());
    unsaved_ = !after || (after->isRegular && after == before);
    return !unsaved_;
}

std::uint64_t RecordFile::Position() const {
    try {
        return object_->GetPosition();
    } catch (const std::exception&) {
        return 0;
    }
}

std::uint64_t RecordFile::Length() const {
    try {
        return object_->GetLength();
    } catch (const std::exception&) {
        return 0;
    }
}

void RecordFile::Check(Kind kind) const {
    if (Info(format_).kind != kind) throw std::logic_error("a record of another kind than the file's");
}

void RecordFile::Check(ProfileShape shape) const {
    if (Info(format_).profile != shape) throw std::logic_error("a profile of another shape than the format's");
}

}  // namespace orvale
