#pragma once

#include <cstdint>
#include <string_view>

#include "frame/FileObject.h"
#include "frame/Operation.h"
#include "native/NativeHeader.h"

namespace orvale {

/// A native format, as its class describes it.
struct NativeFormat {
    std::int32_t fileVersion;
    NativeHeaderLayout header;
    std::u16string_view open;  ///< the head of the line that Open logs
    OperationLines readFileHeader;
    OperationLines verify;
    OperationLines read;
    OperationLines writeFileHeader;
    OperationLines write;
};

/// What the four native files share: a header that holds a flag, then records one behind the other up to the end of the
/// file, with no count and no index. A class adds what its record is; RecordLayout.h has the records' bytes.
class NativeFile : public CFileObject {
 public:
    using CFileObject::Read;
    using CFileObject::Write;
    std::int32_t ReadFileHeader() override;
    std::int32_t Verify() override;
    std::int32_t Read(void** record) override;
    std::int32_t WriteFileHeader() override;
    std::int32_t Write(const void* record) override;

 protected:
    /// The format must live as long as the object: it is a constant of the class.
    explicit NativeFile(const NativeFormat& format);

    // What a record is, called by Read and Write with a file open; each throws where it fails.

    /// Gives the address of the object's record, which stays given where what follows fails, then clears the record.
    virtual void BeginRecord(void** record) = 0;
    /// Fills the record that BeginRecord cleared, and logs it.
    virtual void ReadRecord() = 0;
    /// Logs and writes a record of the host's.
    virtual void WriteRecord(const void* record) = 0;

    /// Logs what the header holds, in lines of the operation that has just read or made it. They say "Orvale", whatever
    /// the operation's other lines say.
    void LogHeader(const OperationLines& operation);

    NativeHeader header_;

 private:
    const NativeFormat& format_;
};

}  // namespace orvale
