#pragma once

#include "native/NativeFile.h"
#include "records/EmailItem.h"

/// The native email file: a header of 24 bytes with the flag "<QZ-EML>", the day of writing and the version 100, then
/// messages (see VisitEmail). Attached data isn't in it, only the text of each attachment.
class CEMLFile : public orvale::NativeFile {
 public:
    CEMLFile();
    ~CEMLFile() override;
    void Close() override;

 private:
    void BeginRecord(void** record) override;
    void ReadRecord() override;
    void WriteRecord(const void* record) override;

    CEmailItem email_;
};
