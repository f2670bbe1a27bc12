#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frame/FileObject.h"
#include "frame/Operation.h"
#include "records/ContactItem.h"

/// The records of the native files, each told once: a Visit function names a record's items in their order in the file,
/// and a reader or a writer passes through it. An item's form is the primitive of its name. A list is its count and
/// then its entries; a negative count reads as none.
namespace orvale {

/// Reads what a Visit function names. Where a primitive fails, the operation does; what was read before stays.
class RecordReader {
 public:
    explicit RecordReader(CFileObject& file) : file_(file) {}

    void Int(std::int32_t& value) { Require(file_.ReadInt(&value) != 0); }
    void UInt(std::uint32_t& value) { Require(file_.ReadUInt(&value) != 0); }
    void String(std::u16string& text) { Require(file_.ReadString(&text) != 0); }

    /// The memory that a contact lies in: the one item that the log names by itself, before the rest is read.
    void Location(std::int32_t& storage) {
        Int(storage);
        LogFormat(u"ORVALE - CQZSFile::Read : Location[%d]\r\n", storage);
    }

    /// Nothing is reserved by the count, which is the file's word; an entry joins the list when it is whole.
    template <class T, class Visit>
    void List(std::vector<std::unique_ptr<T>>& list, Visit visit) {
        std::int32_t left = 0;
        for (Int(left); left > 0; --left) {
            auto item = std::make_unique<T>();
            visit(*item);
            list.push_back(std::move(item));
        }
    }

    /// The pairs are entered in the file's order, and the field receives a copy of that map, as by AddField.
    void Groups(HashMap<std::u16string>& groups) {
        HashMap<std::u16string> asRead;
        std::int32_t left = 0;
        for (Int(left); left > 0; --left) {
            std::int32_t key = 0;
            std::u16string name;
            Int(key);
            String(name);
            asRead.Set(key, std::move(name));
        }
        groups = asRead;
    }

 private:
    CFileObject& file_;
};

/// Writes what a Visit function names.
class RecordWriter {
 public:
    explicit RecordWriter(CFileObject& file) : file_(file) {}

    void Int(const std::int32_t& value) { file_.WriteInt(&value); }
    void UInt(const std::uint32_t& value) { file_.WriteUInt(&value); }
    void String(const std::u16string& text) { file_.WriteString(&text); }
    void Location(const std::int32_t& storage) { Int(storage); }

    /// A null entry is counted and has no bytes, which no reader can follow: hosts hand in none.
    template <class T, class Visit>
    void List(const std::vector<std::unique_ptr<T>>& list, Visit visit) {
        Count(list.size());
        for (const auto& item : list)
            if (item) visit(*item);
    }

    /// The pairs go out in the order of a copy of the map. Each copy reverses the buckets: with the reader's two, a map
    /// that is read back has its buckets the other way round.
    void Groups(const HashMap<std::u16string>& groups) {
        const HashMap<std::u16string> copy = groups;
        Count(copy.size());
        for (const auto& pair : copy) {
            Int(pair.key);
            String(pair.value);
        }
    }

 private:
    void Count(std::size_t size) { Int(static_cast<std::int32_t>(size)); }

    CFileObject& file_;
};

/// A contact of the native contact file. Contact is const when the archive writes.
template <class Archive, class Contact>
void VisitContact(Archive& archive, Contact& contact) {
    archive.Location(contact.Storage);
    archive.List(contact.fields, [&](auto& field) {
        archive.Int(field.Type);
        archive.String(field.Data);
        archive.UInt(field.extraNumber);
        archive.String(field.extraText);
        archive.Groups(field.groups);
    });
}

}  // namespace orvale
