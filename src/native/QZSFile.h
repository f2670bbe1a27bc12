#pragma once

#include "frame/FieldStock.h"
#include "frame/FileObject.h"
#include "native/NativeHeader.h"
#include "records/ContactItem.h"

/// The native contact file: a header of 24 bytes with the flag "<QZ-QZS>", the day of writing and the version 100, then
/// contacts up to the end of the file, with no count and no index (see VisitContact).
class CQZSFile : public CFileObject {
 public:
    CQZSFile();
    ~CQZSFile() override;

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
    CContactItem contact_;
    orvale::FieldStock stock_;
};
