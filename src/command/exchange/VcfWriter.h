#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "command/exchange/VcfTable.h"
#include "command/formats/RecordSink.h"

namespace orvale {

/// Writes contacts as vCards of version 3.0 (RFC 2426) or 4.0 (RFC 6350). What these have no property for goes into
/// properties of our own, which other programs pass over, so that a reader gets back what the contact was.
class VcfWriter : public RecordSink {
 public:
    VcfWriter(std::ostream& out, VcfVersion version) : out_(out), version_(version) {}

    using RecordSink::Put;
    void Put(const CContactItem& contact) override;
    void Finish() override {}
    std::vector<Note> Losses() const override;

 private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void Survey(const CContactItem& contact);
    std::size_t Find(std::int32_t id) const;
    std::size_t Take(std::int32_t id);
    void PutName();
    std::u16string ComposeFullName() const;
    void PutField(std::size_t place);
    void PutValue(const VcfRow& row, std::size_t place);
    bool PutDate(std::size_t place);
    bool PutGender(const VcfRow& row, std::size_t place);
    void PutAddress(std::uint32_t types);
    void PutWholeAddress(const VcfRow& row, std::size_t place);
    void PutOrganisation();
    void PutOwn(std::size_t place);
    void PutCategories();
    void PutExtras();

    bool Is40() const { return version_ == VcfVersion::k40; }
    const std::u16string& Data(std::size_t place) const { return contact_->fields[place]->Data; }

    // The parts of a line, in their order.
    void Begin(std::string_view property);
    void AddTypes(std::uint32_t types);
    void AddId(std::int32_t id);
    void AddLabel(std::u16string_view text);
    void AddText(std::u16string_view text, bool separatorsToo = true);
    void End();

    std::ostream& out_;
    VcfVersion version_;
    std::string line_;    // that is being made
    std::string buffer_;  // lines of the card, folded
    std::size_t replaced_ = 0;

    // Of the contact that is being written.
    const CContactItem* contact_ = nullptr;
    std::vector<bool> done_;
    VcfIds ids_;
    std::uint32_t hasParts_ = 0;  // the types of addresses that have fields of their parts
    std::uint32_t putParts_ = 0;  // those whose line was written
    bool hasDate_ = false;        // what a card has once was written
    bool hasGender_ = false;
    bool hasOrganisation_ = false;
};

}  // namespace orvale
