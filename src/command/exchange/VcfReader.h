#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "command/exchange/VcfDecoder.h"
#include "command/exchange/VcfLines.h"
#include "command/exchange/VcfProperty.h"
#include "command/exchange/VcfTable.h"
#include "command/formats/RecordSource.h"

namespace orvale {

/// Contacts of vCards of any version and habit, one card at a time. What has no place in a contact is told.
class VcfReader : public RecordSource {
 public:
    VcfReader(const std::filesystem::path& path, const std::string& shownName);

    Kind GetKind() const override { return Kind::kContacts; }
    using RecordSource::Next;
    bool Next(CContactItem& record) override;
    std::optional<std::uint64_t> BrokenAt() const override { return brokenAt_; }
    std::vector<Note> Notes() const override;

 private:
    struct Finding {
        std::size_t count = 0;
        std::size_t firstLine = 0;
    };
    using Findings = std::map<std::string, Finding, std::less<>>;

    // What waits for the end of a card: it speaks of fields by their type and which one of that type it is.
    struct Extra {
        std::int32_t type;
        std::int64_t nth;
        std::uint32_t number;
        std::u16string text;
        std::optional<std::int32_t> group;  // its name is the text
    };

    bool FindCard();
    bool TakeCard(CContactItem& record);
    bool TakeFrame(const VcfProperty& property, bool& ends);
    void TakeVersion(std::string_view value);
    void TakeProperty(const VcfProperty& property, std::size_t line);
    void TakeValue(const VcfProperty& property, VcfKind kind, std::size_t line);
    void TakeName(const VcfProperty& property, VcfKind kind, std::size_t line);
    void TakeAddress(const VcfProperty& property, VcfKind kind);
    void TakeOrganisation(const VcfProperty& property, VcfKind kind);
    void TakeCategories(const VcfProperty& property);
    void TakeExtra(const VcfProperty& property, bool isGroup, std::size_t line);
    void FinishCard();
    void GiveGroups();
    void GiveExtras();
    std::int32_t GroupOf(const std::u16string& name);
    std::int32_t IdFor(const VcfProperty& property, VcfKind kind);
    void Add(std::int32_t type, std::u16string data);
    void AddNote(std::string_view what, std::size_t line, std::size_t count = 1);
    static void Count(Findings& findings, std::string_view what, const Finding& finding);

    VcfLines lines_;
    VcfHeads heads_;
    VcfDecoder decoder_;
    VcfLine line_;
    bool hasBegun_ = false;  // the line that begins the next card was met in the one before it
    std::uint64_t wholeEnd_ = 0;
    std::optional<std::uint64_t> brokenAt_;
    Findings notes_;
    std::map<std::u16string, std::int32_t> groupIds_;  // of the file

    // Of the card that is being read.
    CContactItem* contact_ = nullptr;
    std::optional<VcfVersion> version_;
    std::vector<VcfLine> early_;  // what stands before the version
    VcfIds ids_;
    bool hasName_ = false;
    std::vector<const VcfRow*> addresses_;  // the kinds that are taken
    std::vector<std::pair<std::int32_t, std::u16string>> groups_;
    std::vector<Extra> extras_;
    Findings cardNotes_;       // a card that doesn't come whole is damage, and nothing of it is told apart
    bool afterAgent_ = false;  // a card may stand in the next lines
    std::size_t depth_ = 0;    // of cards within the card
};

}  // namespace orvale
