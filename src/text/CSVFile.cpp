#include "text/CSVFile.h"

#include <algorithm>

#include "frame/Operation.h"
#include "frame/RecordLog.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "records/CSVLine.h"

using orvale::Operation;
using orvale::Require;
using orvale::Trim;

namespace {

constexpr std::u16string_view kComma = u",";
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::int32_t kLastName = 99;  // the types up to this one keep their blanks, and an empty value

void AppendQuoted(std::u16string& line, std::u16string_view value) {
    value = value.substr(0, orvale::FindUnit(value, u'\0'));  // a zero ends a text: it must not end the line
    line += u'"';
    if (orvale::FindUnit(value, u'"') == std::u16string_view::npos)
        line += value;
    else
        line += orvale::Replace(value, u"\"", u"\"\"");
    line += u'"';
}

}  // namespace

CCSVFile::CCSVFile() : CFileObject(210, u"ORVALE - CCSVFile::Open") {}

CCSVFile::~CCSVFile() {
    CCSVFile::Close();
}

void CCSVFile::Close() {
    contact_.Clear();
    orvale::LogText(u"ORVALE - CCSVFile::Close : Begin/Finish\r\n");
    CloseStream();
}

void CCSVFile::SetProfile(const void* profile) {
    if (profile == nullptr) return;
    orvale::LogFormat(u"ORVALE - CCSVFile::SetProfile : Profile[0x%08X]\r\n", profile);
    try {
        profile_ = orvale::CSVColumns(*static_cast<const CCSVProfile*>(profile));
    } catch (const std::exception&) {  // no memory: the profile before stays, and the next operation fails
        Shortage() = true;
    }
    for (FileColumn& column : columns_)
        column.type = profile_.TypeOf(column.caption);
}

std::int32_t CCSVFile::Verify() {
    if (!IsOpened()) return VERIFY_NOT_OPENED;
    return columns_.empty() ? VERIFY_NOT_READ_HEADER : VERIFY_OK;
}

// ---- reading

std::int32_t CCSVFile::ReadString(std::u16string* text) try {
    if (text == nullptr || !IsOpened()) return 0;
    std::string_view line;
    if (orvale::ReadLine(*this, orvale::kCSVLineBuffer, lineBytes_, line) != orvale::LineResult::kLine) return 0;
    if (line.size() == orvale::kCSVLineBuffer) return 0;
    Converter().AssignWide(line, *text);
    return 1;
} catch (const std::exception&) {
    return 0;
}

std::int32_t CCSVFile::ReadFileHeader() {
    Operation operation(*this, u"ORVALE - CCSVFile::ReadFileHeader", Operation::kBegin | Operation::kFinish);
    return operation.Run([&] {
        Require(IsOpened());
        Seek(0, kBegin);
        Require(!AtEnd(), "the file is empty");
        columns_.clear();
        std::u16string line;
        Require(ReadString(&line) != 0);
        std::u16string_view rest = Trim(line);
        operation.Tell(rest);
        while (!rest.empty()) {
            const std::u16string_view caption = orvale::TakeCSVCaption(rest);
            Require(caption.size() <= orvale::kLongestCSVCaption, "the caption is too long");
            columns_.push_back({std::u16string(caption), profile_.TypeOf(caption)});
        }
        Require(!columns_.empty(), "no captions");
    });
}

std::int32_t CCSVFile::Read(void** record) {
    Operation operation(*this, u"ORVALE - CCSVFile::Read");
    return operation.Run([&] {
        Require(IsOpened() && record != nullptr && !AtEnd());
        *record = &contact_;
        stock_.Clear(contact_);
        Require(ReadString(&line_) != 0);
        operation.Tell(Trim(line_));
        ParseLine(Trim(line_));
        orvale::LogContact(&contact_);
    });
}

// Values behind the last column are dropped.
void CCSVFile::ParseLine(std::u16string_view line) {
    std::u16string joined;
    std::u16string undoubled;
    for (const FileColumn& column : columns_) {
        if (line.empty()) return;
        std::u16string_view value = orvale::UnquoteCSV(orvale::TakeCSVValue(line, joined), undoubled);
        if (column.type == -1) continue;
        if (column.type > kLastName) {
            value = Trim(value);
            if (value.empty()) continue;
        }
        contact_.fields.push_back(stock_.Take());
        contact_.fields.back()->Type = column.type;
        contact_.fields.back()->Data = value;
    }
}

// ---- writing

void CCSVFile::WriteString(const std::u16string* text) {
    if (text != nullptr && !text->empty()) WriteNarrow(*text);
}

std::int32_t CCSVFile::Write(const void* record) {
    Operation operation(*this, u"ORVALE - CCSVFile::Write");
    return operation.Run([&] {
        Require(IsOpened() && record != nullptr && !profile_.IsEmpty());
        const auto& contact = *static_cast<const CContactItem*>(record);
        orvale::LogContact(&contact);
        const std::u16string line = ComposeLine(contact);
        operation.Tell(line);
        WriteString(&line);
    });
}

std::u16string CCSVFile::ComposeLine(const CContactItem& contact) {
    std::vector<const CContactField*> row(profile_.Count());
    profile_.StartRow();
    for (const auto& field : contact.fields) {
        if (!field) continue;
        const std::optional<std::size_t> column = profile_.Take(field->Type);
        if (!column) continue;  // a type that the profile doesn't know has no place in the file
        row.resize(profile_.Count());
        row[*column] = field.get();
    }
    std::u16string line;
    for (const CContactField* field : row) {
        if (field != nullptr) AppendQuoted(line, field->Data);
        line += kComma;
    }
    return line.append(kLineEnd);
}

std::u16string CCSVFile::ComposeHeader() const {
    std::u16string line;
    for (std::size_t i = 0; i < profile_.Count(); ++i)
        line.append(profile_.Caption(i)).append(kComma);
    return line.append(kLineEnd);
}

std::int32_t CCSVFile::WriteFileHeader() {
    Operation operation(*this, u"ORVALE - CCSVFile::WriteFileHeader", Operation::kBegin | Operation::kFinish);
    return operation.Run([&] {
        Require(IsOpened() && !profile_.IsEmpty());
        const std::u16string line = ComposeHeader();
        MakeRoom(ToNarrow(line).size());
        Seek(0, kBegin);
        WriteString(&line);
        operation.Tell(line);
        Seek(0, kEnd);
    });
}

// Moves what the file holds towards its end, the last piece first, so that a file of any length costs one piece of
// memory. The first piece is what comes to stand behind the old end: if there is no room for it, nothing was
// overwritten.
void CCSVFile::MakeRoom(std::uint64_t size) {
    constexpr std::uint64_t kPiece = std::uint64_t{256} * 1024;
    const std::uint64_t length = GetLength();
    std::uint64_t left = length;
    std::vector<char> piece;
    const auto moveLast = [&](std::uint64_t most) {
        piece.resize(std::min({left, most, kPiece}));
        const auto count = static_cast<std::uint32_t>(piece.size());
        left -= count;
        Seek(static_cast<std::int64_t>(left), kBegin);
        Require(CFile::Read(piece.data(), count) == count, "the file became shorter");
        Seek(static_cast<std::int64_t>(left + size), kBegin);
        CFile::Write(piece.data(), count);
        HandOver();
    };
    try {
        moveLast(size);
    } catch (...) {
        SetLength(length);
        throw;
    }
    while (left > 0)
        moveLast(kPiece);
}
