#include "platform/File.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <stdexcept>

#include "platform/StandardStreams.h"
#include "platform/Text.h"

namespace {

[[noreturn]] void ThrowSystemError(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}
[[noreturn]] void ThrowSystemError(int number, const char* what) {
    errno = number;
    ThrowSystemError(what);
}

template <class Call>
auto Retry(Call call) {  // a signal is no failure
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

// What fails to lock because the file system has no locks is taken as locked.
bool LockedByAnother(int descriptor) {
    return Retry([&] { return flock(descriptor, LOCK_EX | LOCK_NB); }) == -1 && errno == EWOULDBLOCK;
}

int SystemFlags(std::uint32_t flags) {
    constexpr int kAccess[] = {O_RDONLY, O_WRONLY, O_RDWR};
    return kAccess[flags & 3] | ((flags & CFile::kModeCreate) != 0 ? O_CREAT : 0) | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
}

}  // namespace

const std::type_info& CFile::GetRuntimeClass() const {
    return typeid(*this);
}

CFile::~CFile() {
    CFile::Abort();
}

void CFile::Serialize(void*) {}
void CFile::AssertValid() const {}
void CFile::Dump(void*) const {}

std::uint64_t CFile::GetPosition() const {
    return systemPosition_ - (readEnd_ - readStart_) + gathered_.size();
}

std::u16string CFile::GetFileName() const {
    const std::size_t slash = path_.rfind(u'/');
    return slash == std::u16string::npos ? path_ : path_.substr(slash + 1);
}

std::u16string CFile::GetFileTitle() const {
    const std::u16string name = GetFileName();
    return name.substr(0, name.rfind(u'.'));
}

std::u16string CFile::GetFilePath() const {
    return path_;
}

void CFile::SetFilePath(const char16_t* path) {
    if (path == nullptr) throw std::invalid_argument("null path");
    path_ = path;
}

std::int32_t CFile::Open(const char16_t* path, std::uint32_t flags, std::error_code* error) {
    const auto fail = [&](int number) {
        CloseDescriptor();
        if (error != nullptr) *error = std::error_code(number, std::generic_category());
        return 0;
    };
    try {
        CFile::Close();
        if (path == nullptr || (flags & 3) == 3 || !orvale::IsWellFormed(path)) return fail(EINVAL);
        path_ = path;
        const std::string name = orvale::ToUtf8(path);
        descriptor_ =
            orvale::BesideStandardStreams(Retry([&] { return open(name.c_str(), SystemFlags(flags), 0666); }));
        if (descriptor_ == kNullHandle) return fail(errno);
        struct stat status {};
        if (fstat(descriptor_, &status) != 0) return fail(errno);
        const bool regular = S_ISREG(status.st_mode);
        if (S_ISDIR(status.st_mode)) return fail(EISDIR);
        if (!regular && !S_ISCHR(status.st_mode) && !S_ISBLK(status.st_mode)) return fail(EINVAL);
        if ((flags & kShareExclusive) != 0 && LockedByAnother(descriptor_)) return fail(EBUSY);
        if (!regular) fcntl(descriptor_, F_SETFL, SystemFlags(flags) & (O_RDONLY | O_WRONLY | O_RDWR));
        seekable_ = lseek(descriptor_, 0, SEEK_CUR) != -1;
        const bool empties = (flags & kModeCreate) != 0 && (flags & kModeNoTruncate) == 0 && (flags & 3) != kModeRead;
        if (empties && regular && Retry([&] { return ftruncate(descriptor_, 0); }) != 0) return fail(errno);
        return 1;
    } catch (const std::system_error& failure) {
        return fail(failure.code().value());
    } catch (const std::exception&) {
        return fail(ENOMEM);
    }
}

CFile* CFile::Duplicate() const {
    throw std::logic_error("a file object has no duplicate");
}

std::uint64_t CFile::Seek(std::int64_t offset, SeekOrigin origin) {
    HandOver();
    std::int64_t base = 0;
    if (origin == kCurrent) base = static_cast<std::int64_t>(GetPosition());
    if (origin == kEnd) base = static_cast<std::int64_t>(GetLength());
    std::int64_t target = 0;
    if (origin < kBegin || origin > kEnd || __builtin_add_overflow(base, offset, &target) || target < 0)
        ThrowSystemError(EINVAL, "seek");
    const auto position = static_cast<std::uint64_t>(target);
    const std::uint64_t firstAhead = systemPosition_ - readEnd_;
    if (readEnd_ != 0 && position >= firstAhead && position <= systemPosition_) {
        readStart_ = position - firstAhead;
        return position;
    }
    readStart_ = readEnd_ = 0;
    MoveSystemTo(position);
    return position;
}

void CFile::SetLength(std::uint64_t length) {
    HandOver();
    DropReadAhead();
    if (length > static_cast<std::uint64_t>(INT64_MAX)) ThrowSystemError(EFBIG, "set length");
    if (Retry([&] { return ftruncate(descriptor_, static_cast<off_t>(length)); }) != 0) ThrowSystemError("set length");
}

std::uint64_t CFile::GetLength() {
    HandOver();
    struct stat status {};
    if (fstat(descriptor_, &status) != 0) ThrowSystemError("length");
    return static_cast<std::uint64_t>(status.st_size);
}

bool CFile::FillBuffer() {
    HandOver();
    if (readBuffer_.empty()) readBuffer_.resize(kReadAhead);
    readStart_ = readEnd_ = 0;
    const ssize_t got = Retry([&] { return read(descriptor_, readBuffer_.data(), readBuffer_.size()); });
    if (got < 0) ThrowSystemError("read");
    readEnd_ = static_cast<std::size_t>(got);
    systemPosition_ += readEnd_;
    return readEnd_ != 0;
}

std::uint32_t CFile::Read(void* buffer, std::uint32_t count) {
    if (buffer == nullptr && count != 0) ThrowSystemError(EFAULT, "read");
    auto* to = static_cast<char*>(buffer);
    std::uint32_t left = count;
    while (left > 0 && !AtEnd()) {
        const std::size_t size = std::min<std::size_t>(left, readEnd_ - readStart_);
        std::memcpy(to, readBuffer_.data() + readStart_, size);
        readStart_ += size;
        to += size;
        left -= static_cast<std::uint32_t>(size);
    }
    return count - left;
}

void CFile::Write(const void* buffer, std::uint32_t count) {
    if (!IsOpened()) ThrowSystemError(EBADF, "write");
    if (buffer == nullptr && count != 0) ThrowSystemError(EFAULT, "write");
    if (readEnd_ != 0) DropReadAhead();
    const auto* const from = static_cast<const char*>(buffer);
    gathered_.insert(gathered_.end(), from, from + count);
    if (gathering_ == 0) HandOver();
}

void CFile::HandOver() {
    if (gathered_.empty()) return;
    std::size_t done = 0;
    while (done < gathered_.size()) {
        const ssize_t put = Retry([&] { return write(descriptor_, gathered_.data() + done, gathered_.size() - done); });
        if (put <= 0) {
            gathered_.clear();
            if (put == 0) errno = EIO;
            ThrowSystemError("write");
        }
        done += static_cast<std::size_t>(put);
        systemPosition_ += static_cast<std::size_t>(put);
    }
    gathered_.clear();
    // One huge record must not keep its memory for as long as the file is open.
    if (gathered_.capacity() > 16 * kReadAhead) gathered_.shrink_to_fit();
}

// The descriptor goes back to where the object stands.
void CFile::DropReadAhead() {
    const std::uint64_t position = GetPosition();
    readStart_ = readEnd_ = 0;
    MoveSystemTo(position);
}

void CFile::MoveSystemTo(std::uint64_t position) {
    if (position == systemPosition_ && IsOpened()) return;
    // A device such as a terminal has no positions: bytes come and go in their order.
    if (seekable_ && lseek(descriptor_, static_cast<off_t>(position), SEEK_SET) == -1) ThrowSystemError("seek");
    systemPosition_ = position;
}

void CFile::LockRange(std::uint64_t, std::uint64_t) {
    throw std::logic_error("ranges aren't locked");
}
void CFile::UnlockRange(std::uint64_t, std::uint64_t) {
    throw std::logic_error("ranges aren't locked");
}

void CFile::Abort() {
    gathered_.clear();
    CloseDescriptor();
}

void CFile::Flush() {
    HandOver();
}

void CFile::Close() {
    if (!IsOpened()) return;
    try {
        HandOver();
    } catch (...) {
        CloseDescriptor();
        throw;
    }
    CloseDescriptor();
}

void CFile::CloseDescriptor() noexcept {
    if (IsOpened()) close(descriptor_);  // not to be tried again on EINTR: the descriptor is gone all the same
    descriptor_ = kNullHandle;
    seekable_ = true;
    systemPosition_ = 0;
    readStart_ = readEnd_ = 0;
    gathered_.clear();
}

std::uint32_t CFile::GetBufferPtr(std::uint32_t, std::uint32_t, void**, void**) {
    return 0;
}
