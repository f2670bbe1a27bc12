#pragma once

#include "frame/FieldStock.h"
#include "native/NativeFile.h"
#include "records/ContactItem.h"

/// The native contact file: a header of 24 bytes with the flag "<QZ-QZS>", the day of writing and the version 100, then
/// contacts (see VisitContact).
class CQZSFile : public orvale::NativeFile {
 public:
    CQZSFile();
    ~CQZSFile() override;
    void Close() override;

 private:
    void BeginRecord(void** record) override;
    void ReadRecord() override;
    void WriteRecord(const void* record) override;

    CContactItem contact_;
    orvale::FieldStock stock_;
};
