#pragma once

#include "frame/FileObject.h"
#include "native/NativeHeader.h"
#include "records/EmailItem.h"

/// The native email file: a header of 24 bytes with the flag "<QZ-EML>", the day of writing and the version 100, then
/// messages up to the end of the file, with no count and no index (see VisitEmail). Attached data isn't in it, only the
/// text of each attachment.
class CEMLFile : public CFileObject {
 public:
    CEMLFile();
    ~CEMLFile() override;

    using CFileObject::Open;
    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override;
    std::int32_t ReadFileHeader() override;
    std::int32_t Verify() override;
    std::int32_t Read(void** record) override;
    std::int32_t WriteFileHeader() override;
    std::int32_t Write(const void* record) override;

 private:
    orvale::NativeHeader header_;
    CEmailItem email_;
};
