#pragma once

#include "frame/FileObject.h"
#include "native/NativeHeader.h"
#include "records/CalendarItem.h"

/// The native calendar file: a header of 24 bytes with the flag "<QZ-CAL>", the day of writing and the version 100
/// (that of the header, not the 101 of the class), then items up to the end of the file, with no count and no index
/// (see VisitCalendar). It is the one format that keeps calendar fields of any type, and a field's second number.
class CCALFile : public CFileObject {
 public:
    CCALFile();
    ~CCALFile() override;

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
    CCalendarItem item_;
};
