#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "command/formats/FormatTable.h"
#include "command/formats/Kinds.h"
#include "command/formats/Profile.h"
#include "host/Flatten.h"
#include "host/Formats.h"
#include "host/RecordFile.h"
#include "support/MemoryWatch.h"
#include "support/Scratch.h"
#include "support/Target.h"

/// What the targets of the twelve formats share. File objects come from the module's exports, which are linked in so
/// that the engine sees their ways.
namespace orvale::fuzz {

/// A file object, closed and given back as hosts do it.
class Object {
 public:
    explicit Object(FileFormat format);
    ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    bool Open(const std::string& path, std::uint32_t flags);
    CFileInterface* operator->() { return object_; }
    CFileInterface& operator*() { return *object_; }

 private:
    CFileInterface* object_ = nullptr;
};

/// What a file says.
struct Told {
    bool header = false;
    std::int32_t verify = VERIFY_NOT_OPENED;
    std::string profile;
    std::vector<std::u16string> records;
};

/// The profile by which columns are read and written: names and others, a type that has two, one that no table names.
const SharedProfile& Columns();

/// The profile that an object has, for the shapes that suites carry.
SharedProfile ProfileOf(CFileInterface& object, ProfileShape shape);

/// All that a profile says.
std::string TextOf(const SharedProfile& profile);

/// Detection tells a file's format by its content.
void MustTellFormat(const Scratch& file, FileFormat format);

/// How a format is worked with.
ProfileShape ShapeOfFormat(FileFormat format);

/// For a reading that only wants what it tells.
inline constexpr auto kNothing = [](const auto&) {};

/// Reads a file up to the first 0 of Read, calling `each` with every record, then asks a little further, which must be
/// harmless. `begin` is called with the profile before the first record.
template <class Record, class Begin = decltype(kNothing), class Each = decltype(kNothing)>
Told Read(FileFormat format, const std::string& path, Begin begin = kNothing, Each each = kNothing) {
    Told told;
    const ProfileShape shape = ShapeOfFormat(format);
    Object file(format);
    if (!file.Open(path, CFile::kModeRead)) return told;
    if (shape == ProfileShape::kColumns) file->SetProfile(AddressOf(Columns()));
    told.header = file->ReadFileHeader() != 0;
    told.verify = file->Verify();
    const auto aside = [](auto work) {
        const MemoryWatch::Pause pause;
        work();
    };
    aside([&] {
        const SharedProfile profile = shape == ProfileShape::kColumns ? Columns() : ProfileOf(*file, shape);
        if (profile != Columns()) told.profile = TextOf(profile);
        begin(profile);
    });
    void* address = nullptr;
    while (file->Read(&address) != 0) {
        aside([&] {
            const auto& record = *static_cast<const Record*>(address);
            Flatten(record, told.records.emplace_back());
            each(record);
        });
    }
    for (int i = 0; i < 3; ++i)
        file->Read(&address);
    file->Close();
    return told;
}

/// Reads a file and writes each record to another of a format, as a host converts files, calling `each` with it.
template <class Record, class Each = decltype(kNothing)>
Told Copy(FileFormat format, const std::string& from, FileFormat toFormat, const std::string& to,
          Each each = kNothing) {
    const bool columns = ShapeOfFormat(toFormat) == ProfileShape::kColumns;
    bool written = true;
    Object file(toFormat);
    Must(file.Open(to, CFile::kCreateReadWrite), "a file can be made");
    const auto begin = [&](const SharedProfile& profile) {
        file->SetProfile(AddressOf(profile));
        if (!columns) written = file->WriteFileHeader() != 0;
    };
    Told told = Read<Record>(format, from, begin, [&](const Record& record) {
        each(record);
        written = file->Write(&record) != 0 && written;
    });
    const MemoryWatch::Pause pause;
    if (columns) written = file->WriteFileHeader() != 0 && written;  // the captions come last
    file->Close();
    Must(written, "what was read can be written");
    return told;
}

/// Reads an input, under the watch of memory, and writes what it holds to `copy`.
template <class Record, class Each = decltype(kNothing)>
Told CopyInput(FileFormat format, std::string_view input, FileFormat toFormat, const Scratch& copy,
               Each each = kNothing) {
    const Scratch file("input", input);
    const MemoryWatch watch(input.size());
    return Copy<Record>(format, file.Path(), toFormat, copy.Path(), each);
}

/// The question of a format that keeps all: after `writings` writings, records are what they were when they were read
/// first, and so are the bytes of the file.
template <class Record>
void AskExact(FileFormat format, std::string_view input, int writings = 1) {
    const Scratch copy("copy");
    const Scratch from("from");
    const Scratch to("to");
    const Told first = CopyInput<Record>(format, input, format, copy);
    MustTellFormat(copy, format);
    from.Put(copy.Get());
    for (int i = 0; i < writings; ++i) {
        const Told again = Copy<Record>(format, from.Path(), format, to.Path());
        Must(again.header && again.verify == VERIFY_OK, "a file that was written is in order");
        Must(again.records.size() == first.records.size(), "as many records come back");
        Must(i + 1 < writings || again.records == first.records, "records come back as they were");
        from.Put(to.Get());
    }
    Must(from.Get() == copy.Get(), "the file comes back as it was");
}

/// The fields of a contact, as type and value, the values as far as the code page holds them.
std::vector<std::pair<std::int32_t, std::u16string>> FieldsOf(const CContactItem& contact);

/// The length of a text's longest line, with its CR LF.
std::size_t LongestLine(std::string_view text);

/// Whether a date comes back from its UTC text where blanks around that are taken away: a year below 1000 is written
/// with a blank in front.
bool HasWholeYear(const DateValue& date);

/// The same of all dates of a record.
inline bool HasWholeYears(const auto&) {
    return true;
}
inline bool HasWholeYears(const CCalendarItem& item) {
    return HasWholeYear(item.dtstart) && HasWholeYear(item.dtend) && HasWholeYear(item.recurenddate);
}
inline bool HasWholeYears(const CEmailItem& email) {
    return HasWholeYear(email.received) && HasWholeYear(email.sent);
}

/// The question of a format that keeps what it can: what was written once comes back as it was. Files with a year that
/// doesn't are let through.
template <class Record>
void AskSettled(FileFormat format, std::string_view input) {
    const Scratch copy("copy");
    const Scratch again("again");
    bool keepsAll = true;
    const Told first = CopyInput<Record>(format, input, format, copy,
                                         [&](const Record& record) { keepsAll = keepsAll && HasWholeYears(record); });
    if (!first.header || !keepsAll) return;
    if (!first.records.empty()) MustTellFormat(copy, format);
    const Told second = Copy<Record>(format, copy.Path(), format, again.Path());
    const Told third = Read<Record>(format, again.Path());
    Must(second.header && second.verify == VERIFY_OK, "a file that was written is in order");
    Must(second.profile == third.profile, "a profile that was written once comes back as it was");
    Must(second.records == third.records, "records that were written once come back as they were");
}

}  // namespace orvale::fuzz
