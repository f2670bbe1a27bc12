#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/FileObject.h"
#include "records/CalendarItem.h"
#include "text/PropertyList.h"

using VCalProperty = orvale::TextProperty;
using VCalPropertyList = orvale::TextPropertyList;

/// vCalendar 1.0 (the versit consortium's, 18 September 1996) as the phones of the time kept to it: 8-bit text in the
/// thread's code page, lines that end in CR LF. A file is one item, however many entries stand in it: Read takes in all
/// of it and succeeds at most once. Start, end, priority and the texts of three field types have a line, nothing else
/// of an item. A line's key is known as a whole or not at all, and a line with an unknown key joins the value before
/// it.
class CVCalendarFile : public CFileObject {
 public:
    CVCalendarFile();
    ~CVCalendarFile() override;

    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override;
    std::int32_t Verify() override;

    /// A date that can't be made out is no failure: the item's `operation` is then OPERATION_MODIFY.
    std::int32_t Read(void** record) override;

    /// Writes a whole calendar at the file's position.
    std::int32_t Write(const void* record) override;

 private:
    // Reading: from the file to the text behind its head, to its properties, to the item.
    std::u16string ReadCalendarText();
    VCalPropertyList ParseCalendarText(std::u16string_view text);
    bool ParseCalendarLine(std::u16string_view line, VCalPropertyList& list);
    void BuildCalendarItem(const VCalPropertyList& list);

    // Writing: the same stages backwards.
    VCalPropertyList MapCalendarItem(const CCalendarItem& item);
    std::u16string ComposeCalendarText(const VCalPropertyList& list);

    CCalendarItem item_;
};
