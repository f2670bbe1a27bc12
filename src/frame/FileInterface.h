#pragma once

#include <cstdint>

#include "platform/File.h"
#include "records/GeneralSyncData.h"

/// The number of a format, 0 to 11; see src/module/FileTypes.cpp for the formats behind the numbers.
using FileType = std::int32_t;

/// What Verify gives. 0 is success, unlike every other operation's result.
enum VerifyCode : std::int32_t {
    VERIFY_OK = 0,
    VERIFY_WRONG_FLAG = 0x2000,       ///< the identifying flag in the header is wrong
    VERIFY_NOT_OPENED = 0x2002,       ///< no file is open
    VERIFY_NOT_READ_HEADER = 0x2003,  ///< the header wasn't read, or is empty
    VERIFY_WRONG_SIZE = 0x2005,       ///< the file's size doesn't fit its header
};

/// A file object as its host sees it. The operations stand in the order by which hosts call them (slots 23 to 32; slots
/// 0 to 22 are the stream's). Record and profile addresses are untyped, since one interface serves all kinds of data:
/// contacts take CContactItem, and so on. No exception leaves these operations or Close; a null address gives the
/// failure result. A file object belongs to one thread at a time.
class CFileInterface : public CFile {
 public:
    using CFile::Open;
    using CFile::Read;
    using CFile::Write;

    /// Slot 21. Closes the file if one is open and clears the record that Read gave. Any number of times.
    void Close() override = 0;

    /// Slot 23. The version of the object's layout: 100.
    virtual std::int32_t GetObjectVersion() = 0;

    /// Slot 24. The version of the format's class: 100, 101 or 210.
    virtual std::int32_t GetFileVersion() = 0;

    /// Slot 25. Opens a file by its name and the flags of CFile::OpenFlags; it is never shared. 1, or 0 on failure.
    virtual std::int32_t Open(const char16_t* fileName, const std::uint32_t* openFlags) = 0;

    /// Slot 26. Gives the object a copy of a profile, for the formats that take one; else does nothing.
    virtual void SetProfile(const void* profile) = 0;

    /// Slot 27. Reads the header from the start of the file. 1, or 0 on failure; 1 for formats without a header.
    virtual std::int32_t ReadFileHeader() = 0;

    /// Slot 28. Tells by a VerifyCode whether the file is one of this format, as far as the format can tell.
    virtual std::int32_t Verify() = 0;

    /// Slot 29. Reads the next record. `*record` receives an address that this object owns; the next Read refills what
    /// it points to and Close ends it, so copy what you keep. May be set even where the result is 0.
    /// Returns 1; 0 at the end of the file, at a damaged record, for a null `record`, or with no file open.
    virtual std::int32_t Read(void** record) = 0;

    /// Slot 30. Writes the header at the start of the file. 1, or 0 on failure; 1 for formats without a header.
    virtual std::int32_t WriteFileHeader() = 0;

    /// Slot 31. Writes a record at the file's position; the record stays the host's. 1, or 0 on failure, in which case
    /// a part of the record may stand in the file.
    virtual std::int32_t Write(const void* record) = 0;

    /// Slot 32. Gives the address of the object's own profile, for the formats that have one; else does nothing.
    virtual void GetProfile(const void** profile) = 0;
};

/// The four functions that the module exports, by name.
/// CreateObject makes the file object of a number: 1, or 0 if an address is null, the variable isn't null, or the
/// number has no format. ReleaseObject closes and destroys it and sets the variable to null: 1, or 0 for a null
/// address. The other two do the same under other names. An object is released by these functions alone, never by
/// delete.
extern "C" {
std::int32_t CreateObject(CFileInterface** object, const FileType* type);
std::int32_t ReleaseObject(CFileInterface** object);
std::int32_t QZCreateFileObject(CFileInterface** object, const FileType* type);
std::int32_t QZReleaseFileObject(CFileInterface** object);
}
