#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "frame/FieldStock.h"
#include "frame/FileObject.h"
#include "frame/Operation.h"
#include "records/CalendarItem.h"
#include "records/ContactItem.h"
#include "records/EmailItem.h"
#include "records/SMSItem.h"

/// The records of the native files, each told once: a Visit function names a record's items in their order in the file,
/// and a reader or a writer passes through it. An item's form is the primitive of its name. A list is its count and
/// then its entries; a negative count reads as none.
namespace orvale {

/// What a writer does with the null entries that a list may hold. Counted, as the contact file has it, one is a place
/// without bytes, which no reader can follow; left out, the list is written as if it weren't there.
enum class NullEntries { kCounted, kLeftOut };

/// Reads what a Visit function names. Where a primitive fails, the operation does; what was read before stays.
class LayoutReader {
 public:
    /// With a stock, contact fields are taken from it.
    explicit LayoutReader(CFileObject& file, FieldStock* stock = nullptr) : file_(file), stock_(stock) {}

    void Int(std::int32_t& value) { Require(file_.ReadInt(&value) != 0); }
    void Long(std::int32_t& value) { Require(file_.ReadLong(&value) != 0); }
    void UInt(std::uint32_t& value) { Require(file_.ReadUInt(&value) != 0); }
    void UInt(std::int32_t& value) {  // a number that only the file takes as unsigned
        std::uint32_t number = 0;
        UInt(number);
        value = static_cast<std::int32_t>(number);
    }
    void Date(DateValue& date) { Require(file_.ReadDate(&date) != 0); }
    void String(std::u16string& text) { Require(file_.ReadString(&text) != 0); }

    /// Nothing is reserved by the count, which is the file's word; an entry joins the list when it is whole.
    template <class T, class Visit>
    void List(std::vector<std::unique_ptr<T>>& list, NullEntries, Visit visit) {
        std::int32_t left = 0;
        for (Int(left); left > 0; --left) {
            auto item = New<T>();
            visit(*item);
            list.push_back(std::move(item));
        }
    }

    void Texts(std::vector<std::u16string>& texts) {
        std::int32_t left = 0;
        for (Int(left); left > 0; --left) {
            std::u16string text;
            String(text);
            texts.push_back(std::move(text));
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
    template <class T>
    std::unique_ptr<T> New() {
        if constexpr (std::is_same_v<T, CContactField>)
            if (stock_ != nullptr) return stock_->Take();
        return std::make_unique<T>();
    }

    CFileObject& file_;
    FieldStock* stock_;
};

/// Writes what a Visit function names.
class LayoutWriter {
 public:
    explicit LayoutWriter(CFileObject& file) : file_(file) {}

    void Int(const std::int32_t& value) { file_.WriteInt(&value); }
    void Long(const std::int32_t& value) { file_.WriteLong(&value); }
    void UInt(const std::uint32_t& value) { file_.WriteUInt(&value); }
    void UInt(const std::int32_t& value) { UInt(static_cast<std::uint32_t>(value)); }
    void Date(const DateValue& date) { file_.WriteDate(&date); }
    void String(const std::u16string& text) { file_.WriteString(&text); }

    template <class T, class Visit>
    void List(const std::vector<std::unique_ptr<T>>& list, NullEntries nulls, Visit visit) {
        const auto missing = nulls == NullEntries::kLeftOut ? std::count(list.begin(), list.end(), nullptr) : 0;
        Count(list.size() - static_cast<std::size_t>(missing));
        for (const auto& item : list)
            if (item) visit(*item);
    }

    void Texts(const std::vector<std::u16string>& texts) {
        Count(texts.size());
        for (const std::u16string& text : texts)
            String(text);
    }

    /// The pairs go out in the order of a copy of the map. Each copy reverses the buckets: with the reader's two, a map
    /// that is read back has its buckets the other way round.
    void Groups(const HashMap<std::u16string>& groups) {
        const HashMap<std::u16string> copy = groups;  // NOLINT(performance-unnecessary-copy-initialization)
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

/// A contact of the native contact file. Contact is const when the archive writes. `storageKnown` is called with the
/// memory that the contact lies in, before any of its fields is looked at: the log names it where the rest is damaged,
/// too.
template <class Archive, class Contact, class StorageKnown>
void VisitContact(Archive& archive, Contact& contact, StorageKnown&& storageKnown) {
    archive.Int(contact.Storage);
    storageKnown(contact.Storage);
    archive.List(contact.fields, NullEntries::kCounted, [&](auto& field) {
        archive.Int(field.Type);
        archive.String(field.Data);
        archive.UInt(field.extraNumber);
        archive.String(field.extraText);
        archive.Groups(field.groups);
    });
}

/// A message of the native SMS file.
template <class Archive, class Sms>
void VisitSms(Archive& archive, Sms& sms) {
    archive.Int(sms.storageid);
    archive.Int(sms.status);
    archive.Int(sms.listtype);
    archive.String(sms.name);
    archive.String(sms.phonenumber);
    archive.String(sms.content);
    archive.String(sms.time);
}

/// An item of the native calendar file. The category stands beside the item: a record of the older layout has none, the
/// file always has.
template <class Archive, class Item, class Number>
void VisitCalendar(Archive& archive, Item& item, Number& category) {
    archive.Long(item.itemType);
    archive.List(item.fields, NullEntries::kLeftOut, [&](auto& field) {
        archive.Int(field.Type);
        archive.String(field.Data);
        archive.UInt(field.secondNumber);
    });
    archive.Date(item.dtstart);
    archive.Date(item.dtend);
    archive.Long(item.recurtype);
    archive.Long(item.recurday);
    archive.Long(item.recurmonth);
    archive.Long(item.recurinstance);
    archive.Long(item.recurweekday);
    archive.Long(item.recurweekmask);
    archive.Long(item.recurinterval);
    archive.Long(item.recurrepeat);
    archive.Date(item.recurenddate);
    archive.UInt(item.recurhasenddate);
    archive.Int(item.ringid);
    archive.String(item.ring);
    archive.Int(item.vibration);
    archive.Int(item.secret);
    archive.Long(item.duration);
    archive.Long(item.remindermin);
    archive.Long(item.priority);
    archive.Long(item.complete);
    archive.Long(item.reserve1);
    archive.Long(item.reserve2);
    archive.Long(category);
}

/// A message of the native email file.
template <class Archive, class Email>
void VisitEmail(Archive& archive, Email& email) {
    archive.Long(email.type);
    archive.Long(email.device);
    archive.Long(email.status);
    archive.String(email.box);
    archive.String(email.account);
    archive.String(email.folder);
    archive.String(email.from);
    archive.String(email.to);
    archive.String(email.cc);
    archive.String(email.bcc);
    archive.String(email.subject);
    archive.String(email.body);
    archive.Date(email.received);
    archive.Date(email.sent);
    archive.Texts(email.accessory);
    archive.Long(email.importance);
    archive.Long(email.symbol);
    archive.Long(email.sensitivity);
    archive.String(email.entryid);
}

}  // namespace orvale
