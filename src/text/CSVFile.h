#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/FieldStock.h"
#include "frame/FileObject.h"
#include "records/ContactItem.h"
#include "text/CSVColumns.h"

/// Contacts as comma-separated text in the thread's code page. The first line names the columns by their captions, each
/// further line is a contact. What the captions mean is the host's: it hands in a CCSVProfile. Lines end in CR LF and
/// are read up to 2047 bytes with that; every value and caption is followed by a comma, the last one too. A value
/// stands in double quotes with those inside it doubled; no field, no quotes. The reader takes values without quotes
/// too.
///
/// A contact with more values of a type than the file has columns of it widens the file, so the first line is best
/// written last: WriteFileHeader puts it in front of what is there.
class CCSVFile : public CFileObject {
 public:
    CCSVFile();
    ~CCSVFile() override;

    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override;

    /// Takes a copy of a CCSVProfile. Both reading and writing need one.
    void SetProfile(const void* profile) override;

    /// Reads the captions of the first line. 0 also where it holds none, or one of more than 1024 units.
    std::int32_t ReadFileHeader() override;
    std::int32_t Verify() override;
    std::int32_t Read(void** record) override;

    /// Puts the line of captions in front of what the file holds and leaves the position at the end. The file must be
    /// open for reading too unless it is empty. A disk that is full leaves the file as it was.
    std::int32_t WriteFileHeader() override;
    std::int32_t Write(const void* record) override;

    /// One raw line with its line end. 0, and the text as it was, at the end of the file and for a line over the limit,
    /// of which 2048 bytes are then gone.
    std::int32_t ReadString(std::u16string* text) override;

    /// Writes a text in the thread's code page, as it is.
    void WriteString(const std::u16string* text) override;

 private:
    struct FileColumn {
        std::u16string caption;
        std::int32_t type;  // by the profile, looked up once for all lines; -1 for a caption that it doesn't know
    };

    void ParseLine(std::u16string_view line);
    std::u16string ComposeHeader() const;
    std::u16string ComposeLine(const CContactItem& contact);
    void MakeRoom(std::uint64_t size);

    orvale::CSVColumns profile_;
    std::vector<FileColumn> columns_;  // of the file, as its first line has them
    CContactItem contact_;
    orvale::FieldStock stock_;
    std::u16string line_;
    std::string lineBytes_;  // of the line that ReadString read last, where they aren't in the file's buffer
};
