#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/FieldStock.h"
#include "frame/FileObject.h"
#include "records/ContactItem.h"
#include "text/PropertyList.h"

using VCardProperty = orvale::TextProperty;
using VCardPropertyList = orvale::TextPropertyList;

/// vCard 2.1 (the Internet Mail Consortium's, 18 September 1996) as the phones of the time kept to it: any number of
/// cards, 8-bit text in the thread's code page, lines of at most 2048 bytes that end in CR LF. A line's key is known as
/// a whole or not at all (see VCardKeys.h), and a line with an unknown key joins the value before it. Storage, groups
/// and all other members of a contact but its fields have no line.
class CVCardFile : public CFileObject {
 public:
    CVCardFile();
    ~CVCardFile() override;

    using CFileObject::Read;
    using CFileObject::Write;
    void Close() override;
    std::int32_t Verify() override;
    std::int32_t Read(void** record) override;
    std::int32_t Write(const void* record) override;

    /// One raw line with its line end. 0, and the text as it was, at the end of the file and for a line over the limit,
    /// within which the file then stands.
    std::int32_t ReadString(std::u16string* text) override;

 private:
    /// A card between its version and its end: its logical lines one behind the other. A line that holds no colon
    /// continues the one before it.
    struct CardText {
        struct Start {
            std::size_t line;      ///< where the line starts
            std::size_t keyUnits;  ///< how many units stand before its first colon, or in all of it
        };
        std::u16string units;    ///< the lines, and room behind them
        std::size_t length = 0;  ///< of the lines
        std::vector<Start> starts;

        /// Gives its memory back, which an assignment would keep.
        void Release() {
            const CardText freed(std::move(*this));
            length = 0;
        }

        std::u16string_view Lines() const { return std::u16string_view(units).substr(0, length); }
        std::u16string_view Line(std::size_t i) const {
            const std::size_t end = i + 1 < starts.size() ? starts[i + 1].line : length;
            return std::u16string_view(units).substr(starts[i].line, end - starts[i].line);
        }
    };

    /// How often the repeated keys of a card occurred. A key counts also where its value is empty.
    struct Counters {
        std::int32_t workPhones = 0;
        std::int32_t emails = 0;
    };

    // Reading: from the file to a card's logical lines, to values in their file form, to the contact.
    bool ReadLineInto(CardText& card, std::u16string_view& line);
    std::int32_t ReadCard(CardText& card);
    std::int32_t ParseCard(const CardText& card);
    std::int32_t ParseProperty(std::u16string_view line, std::size_t keyUnits, Counters& counters);
    void AddValue(std::u16string_view value, std::int32_t type);
    std::int32_t BuildContact(const CardText& card);

    // Writing: the same three stages backwards.
    std::int32_t MapContact(const CContactItem* contact, VCardPropertyList& list);
    std::int32_t ComposeCard(std::u16string& text, const VCardPropertyList& list);
    std::int32_t WriteCard(std::u16string_view text);

    CContactItem contact_;
    orvale::FieldStock stock_;
    CardText card_;          // of the card that is being read; this and the line below are kept for their memory
    std::string lineBytes_;  // of the line that was read last, where they aren't in the file's buffer
};
