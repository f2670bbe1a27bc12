#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <typeinfo>
#include <vector>

/// A stream of bytes over a file, the base of every file object. Its virtual operations stand in the order that hosts
/// call them by (slots 0 to 22), which is why some that do nothing are here.
///
/// Reads go through a read-ahead buffer. Writes are gathered and handed to the system at the end of the outermost
/// operation (see Gathering), at Seek, SetLength, GetLength, Flush and Close. Whatever the system refuses is thrown as
/// std::system_error with its error number; what had been gathered is then dropped.
class CFile {
 public:
    /// Open flags: one of the first three, and any of the others. Bits that aren't named here are passed over.
    enum OpenFlags : std::uint32_t {
        kModeRead = 0x0000,
        kModeWrite = 0x0001,
        kModeReadWrite = 0x0002,
        kShareExclusive = 0x0010,  ///< nobody else may hold the file; it isn't waited for
        kModeCreate = 0x1000,      ///< made where it is missing, else emptied
        kModeNoTruncate = 0x2000,  ///< with kModeCreate: not emptied
    };

    /// The flags of a file to be written anew; the XML suites save only under exactly these.
    static constexpr std::uint32_t kCreateReadWrite = kModeCreate | kModeReadWrite;

    enum SeekOrigin : std::int32_t { kBegin = 0, kCurrent = 1, kEnd = 2 };

    CFile() = default;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    virtual const std::type_info& GetRuntimeClass() const;  // slot 0
    virtual ~CFile();                                       // slot 1
    virtual void Serialize(void* archive);                  // slot 2: does nothing
    virtual void AssertValid() const;                       // slot 3: does nothing
    virtual void Dump(void* context) const;                 // slot 4: does nothing
    virtual std::uint64_t GetPosition() const;              // slot 5
    virtual std::u16string GetFileName() const;             // slot 6: the last part of the path
    virtual std::u16string GetFileTitle() const;            // slot 7: the same without its extension
    virtual std::u16string GetFilePath() const;             // slot 8

    /// Stores a path, which changes nothing of an open file. Throws std::invalid_argument for null.
    virtual void SetFilePath(const char16_t* path);  // slot 9

    /// Opens the file at a path; 1, or 0 with the reason in `error` if that isn't null. Only regular files and devices
    /// open, and nothing blocks. A file that another holds under kShareExclusive doesn't open under kShareExclusive; a
    /// file system without locks is taken as it is. A file is emptied only when it is sure to be opened. An object that
    /// is open already closes its file first.
    virtual std::int32_t Open(const char16_t* path, std::uint32_t flags, std::error_code* error);  // slot 10

    virtual CFile* Duplicate() const;                                       // slot 11: not supported, throws
    virtual std::uint64_t Seek(std::int64_t offset, SeekOrigin origin);     // slot 12: the new position
    virtual void SetLength(std::uint64_t length);                           // slot 13
    virtual std::uint64_t GetLength();                                      // slot 14
    virtual std::uint32_t Read(void* buffer, std::uint32_t count);          // slot 15: how many bytes came
    virtual void Write(const void* buffer, std::uint32_t count);            // slot 16
    virtual void LockRange(std::uint64_t position, std::uint64_t count);    // slot 17: not supported, throws
    virtual void UnlockRange(std::uint64_t position, std::uint64_t count);  // slot 18: not supported, throws
    virtual void Abort();                                                   // slot 19: Close without a failure
    virtual void Flush();                                                   // slot 20
    virtual void Close();                                                   // slot 21
    virtual std::uint32_t GetBufferPtr(std::uint32_t command, std::uint32_t count, void** start,
                                       void** end);  // slot 22

    bool IsOpened() const { return descriptor_ != kNullHandle; }

    /// Hands what was gathered to the system.
    void HandOver();

    /// While one of these lives, writes to the file are gathered; they reach the system by HandOver. Without one, a
    /// write is handed over before it returns.
    class Gathering {
     public:
        explicit Gathering(CFile& file) : file_(file), outermost_(file.gathering_ == 0) { ++file_.gathering_; }
        ~Gathering() { --file_.gathering_; }
        Gathering(const Gathering&) = delete;
        Gathering& operator=(const Gathering&) = delete;

        bool IsOutermost() const { return outermost_; }

     private:
        CFile& file_;
        bool outermost_;
    };

    /// Whether the position is at or beyond the length: no byte is left to read.
    bool AtEnd() { return readStart_ == readEnd_ && !FillBuffer(); }

    /// The bytes read ahead from the position on, at least one unless the file is at its end. Good until the next
    /// operation on the file.
    std::string_view Ahead() {
        if (readStart_ == readEnd_) FillBuffer();
        return {readBuffer_.data() + readStart_, readEnd_ - readStart_};
    }

    /// Moves the position over `count` bytes of Ahead().
    void Skip(std::size_t count) { readStart_ += count; }

 private:
    static constexpr int kNullHandle = -1;
    static constexpr std::size_t kReadAhead = 64 * 1024;

    bool FillBuffer();
    void DropReadAhead();
    void MoveSystemTo(std::uint64_t position);
    void CloseDescriptor() noexcept;

    int descriptor_ = kNullHandle;
    bool seekable_ = true;
    std::u16string path_;
    int gathering_ = 0;
    std::uint64_t systemPosition_ = 0;  // where the descriptor stands: behind the read-ahead, before what was gathered
    std::vector<char> readBuffer_;
    std::size_t readStart_ = 0;
    std::size_t readEnd_ = 0;
    std::vector<char> gathered_;
};
