#pragma once

// A file of records with a typed face: what a program opens, reads and writes.

#include <cstdint>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <type_traits>

#include "host/Formats.h"
#include "host/LoadedLibrary.h"

namespace orvale {

/// The kind of each type of records.
template <class Record>
struct RecordKind;
template <>
struct RecordKind<CContactItem> : std::integral_constant<Kind, Kind::kContacts> {};
template <>
struct RecordKind<CCalendarItem> : std::integral_constant<Kind, Kind::kCalendar> {};
template <>
struct RecordKind<CSMSItem> : std::integral_constant<Kind, Kind::kSms> {};
template <>
struct RecordKind<CEmailItem> : std::integral_constant<Kind, Kind::kEmail> {};

/// The shape of each type of profiles, by which the formats name the one that they take.
template <class Profile>
struct ShapeOfProfile;
template <>
struct ShapeOfProfile<CCSVProfile> : std::integral_constant<ProfileShape, ProfileShape::kColumns> {};
template <>
struct ShapeOfProfile<CPhonebookProfile> : std::integral_constant<ProfileShape, ProfileShape::kPhonebook> {};
template <>
struct ShapeOfProfile<CCalendarProfile> : std::integral_constant<ProfileShape, ProfileShape::kCalendar> {};
template <>
struct ShapeOfProfile<CSMSProfile> : std::integral_constant<ProfileShape, ProfileShape::kSms> {};
template <>
struct ShapeOfProfile<CEmailProfile> : std::integral_constant<ProfileShape, ProfileShape::kEmail> {};

enum class OpenMode {
    kRead,
    kCreate,  ///< made where it is missing, else emptied
};

/// A file of records: a file object of the module with a typed face, closed and released with this object. The slots'
/// results come back as bool; only Open throws, since there is more to tell. A record or a profile of another kind than
/// the format's is a fault of the program: std::logic_error.
class RecordFile {
 public:
    /// Throws std::runtime_error where the module doesn't have the format. The library must outlive the file.
    RecordFile(const LoadedLibrary& library, FileFormat format);

    /// Opens a file. Throws std::system_error with the system's reason, where it has one; a file that opens as bytes
    /// and yet not as this format fails with std::errc::invalid_argument.
    void Open(const std::filesystem::path& path, OpenMode mode);

    FileFormat Format() const { return format_; }

    /// The file that was opened last.
    const std::filesystem::path& Path() const { return path_; }

    std::int32_t FileVersion() { return object_->GetFileVersion(); }
    bool ReadHeader() { return object_->ReadFileHeader() != 0; }
    bool WriteHeader() {
        unsaved_ = isSuite_;
        return object_->WriteFileHeader() != 0;
    }

    /// A VerifyCode, or another number that a later module gives.
    std::int32_t Verify() { return object_->Verify(); }

    /// The next record, or null at the end or at a damaged one. It is the file's own: good until the next Read or
    /// Close.
    template <class Record>
    const Record* Read() {
        Check(RecordKind<Record>::value);
        void* record = nullptr;
        return object_->Read(&record) != 0 ? static_cast<const Record*>(record) : nullptr;
    }

    template <class Record>
    bool Write(const Record& record) {
        Check(RecordKind<Record>::value);
        unsaved_ = isSuite_;
        return object_->Write(&record) != 0;
    }

    /// Gives the file a copy of a profile. A suite takes it before its header, a file of columns before its first
    /// record, in either direction.
    template <class Profile>
    void SetProfile(const Profile& profile) {
        Check(ShapeOfProfile<Profile>::value);
        object_->SetProfile(&profile);
    }

    /// The profile of a suite, once its header was read; null where there is none. It is the file's own: good until the
    /// next header or Close.
    template <class Profile>
    const Profile* GetProfile() {
        Check(ShapeOfProfile<Profile>::value);
        const void* profile = nullptr;
        object_->GetProfile(&profile);
        return static_cast<const Profile*>(profile);
    }

    /// Where the next record begins, and how long the file is; 0 for a format that holds no file open.
    std::uint64_t Position() const;
    std::uint64_t Length() const;

    /// Closes the file. False where it is a suite that was written and could not be saved, which happens here and
    /// nowhere else; the file that was there is as it was then. All else was handed over by each operation.
    bool Close();

    /// The slots themselves, for what has no typed face here.
    CFileInterface& Slots() { return *object_; }

    /// The records from here on, as an input range: `for (const CContactItem& contact : file.Records<CContactItem>())`.
    template <class Record>
    class Range {
     public:
        class Iterator {
         public:
            using iterator_category = std::input_iterator_tag;
            using value_type = Record;
            using difference_type = std::ptrdiff_t;
            using pointer = const Record*;
            using reference = const Record&;

            explicit Iterator(RecordFile* file) : file_(file) { ++*this; }
            reference operator*() const { return *record_; }
            pointer operator->() const { return record_; }
            Iterator& operator++() {
                record_ = file_->Read<Record>();
                return *this;
            }
            void operator++(int) { ++*this; }
            bool operator==(std::default_sentinel_t) const { return record_ == nullptr; }

         private:
            RecordFile* file_;
            const Record* record_ = nullptr;
        };

        explicit Range(RecordFile& file) : file_(&file) {}
        Iterator begin() const { return Iterator(file_); }
        std::default_sentinel_t end() const { return {}; }

     private:
        RecordFile* file_;
    };

    template <class Record>
    Range<Record> Records() {
        return Range<Record>(*this);
    }

 private:
    void Check(Kind kind) const;
    void Check(ProfileShape shape) const;

    FileFormat format_;
    bool isSuite_;
    LoadedLibrary::Object object_;
    std::filesystem::path path_;
    bool unsaved_ = false;  // a suite is built in memory until Close
};

}  // namespace orvale
