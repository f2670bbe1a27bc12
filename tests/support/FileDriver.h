#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/FileInterface.h"
#include "platform/Text.h"
#include "support/ScratchFolder.h"

namespace orvale::test {

/// A file object with its file open, used as a host uses it.
template <class File, class Record>
class FileDriver {
 public:
    explicit FileDriver(const std::u16string& path, std::uint32_t flags = CFile::kModeRead) {
        EXPECT_EQ(file_.Open(path.c_str(), &flags), 1);
    }
    File* operator->() { return &file_; }

    /// The next record, good until the one after it; null where Read gives 0.
    const Record* Next() {
        void* record = nullptr;
        return file_.Read(&record) == 1 ? static_cast<const Record*>(record) : nullptr;
    }
    std::int32_t Write(const Record* record) { return static_cast<CFileInterface&>(file_).Write(record); }

 private:
    File file_;
};

/// Types and values of a contact's fields as "5=John Smith|104=+1 555", in UTF-8.
inline std::string ValuesOf(const CContactItem& contact) {
    std::string values;
    for (const auto& field : contact.fields)
        values += (values.empty() ? "" : "|") + std::to_string(field->Type) + "=" + ToUtf8(field->Data);
    return values;
}

/// The contact of such a text, each field added from one scratch field.
inline CContactItem ContactOf(std::string_view values) {
    CContactItem contact;
    CContactField field;
    while (!values.empty()) {
        const std::string_view value = values.substr(0, values.find('|'));
        const std::u16string text = FromUtf8(value);
        field.Type = ToNumber(text);
        field.Data = text.substr(text.find(u'=') + 1);
        contact.AddField(field);
        values.remove_prefix(std::min(value.size() + 1, values.size()));
    }
    return contact;
}

}  // namespace orvale::test
