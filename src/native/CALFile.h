#pragma once

#include "native/NativeFile.h"
#include "records/CalendarItem.h"

/// The native calendar file: a header of 24 bytes with the flag "<QZ-CAL>", the day of writing and the version 100
/// (that of the header, not the 101 of the class), then items (see VisitCalendar). It is the one format that keeps
/// calendar fields of any type, and a field's second number.
class CCALFile : public orvale::NativeFile {
 public:
    CCALFile();
    ~CCALFile() override;
    void Close() override;
    std::int32_t WriteFileHeader() override;

 private:
    void BeginRecord(void** record) override;
    void ReadRecord() override;
    void WriteRecord(const void* record) override;

    CCalendarItem item_;
};
