#include "command/files/RecordInput.h"

#include <stdexcept>

#include "command/console/CommandError.h"
#include "command/files/Columns.h"
#include "command/scan/ColumnScan.h"

namespace orvale {

RecordInput::RecordInput(const LoadedLibrary& library, const InputName& input) : input_(input) {
    if (input.format->own == nullptr) {
        OpenFile(library);
        return;
    }
    own_ = input.format->own->open(input.path, input.name);
    profile_ = own_->GetProfile();
}

void RecordInput::OpenFile(const LoadedLibrary& library) try {
    file_.emplace(library, *input_.format->type);
    file_->Open(input_.path, OpenMode::kRead);
    if (input_.format->profile == ProfileShape::kColumns)  // the captions of a file aren't a profile that it carries
        file_->Slots().SetProfile(AddressOf(ColumnsOf(input_)));
    const bool headerRead = file_->ReadHeader();
    if (headerRead) profile_ = CopyOfProfile(file_->Slots(), input_.format->profile);
    verifyCode_ = file_->Verify();
    if (headerRead) reader_.emplace(*file_);
} catch (const std::system_error& error) {
    const bool notXml = IsSuite(*input_.format) && error.code() == std::errc::invalid_argument;
    FailFile(input_.name, "",
             notXml ? "no well-formed XML document, or one beyond the limits" : SystemReason(error.code()));
} catch (const CommandError&) {
    throw;
} catch (const std::runtime_error& error) {
    FailFile(input_.name, "", error.what());
}

void RecordInput::FailRecord(std::string_view reason) const {
    FailFile(input_.name, "record " + std::to_string(count_ + 1), reason);
}

std::optional<std::uint64_t> RecordInput::BrokenAt() const {
    if (own_) return own_->BrokenAt();
    try {
        return reader_ ? reader_->BrokenAt() : std::nullopt;
    } catch (const std::runtime_error& error) {
        FailFile(input_.name, "", error.what());
    }
}

std::string PlaceOfDamage(const RecordInput& input, std::uint64_t offset) {
    return "record " + std::to_string(input.Count() + 1) + ", byte " + std::to_string(offset);
}

std::string PassedOverText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " record could not be read and was passed over"
                                               : " records could not be read and were passed over");
}

std::string HeaderReason(const RecordInput& input) {
    std::string reason = "its header can't be read";
    if (input.Verify() != VERIFY_OK) reason += " (" + VerifyName(input.Verify()) + ")";
    const bool hasColumns = input.Name().format->profile == ProfileShape::kColumns;
    const std::string why = hasColumns ? WhyNoCaptions(input.Name().path) : "";
    return why.empty() ? reason : reason + ": " + why;
}

void RequireHeader(const RecordInput& input) {
    if (!input.HeaderRead()) FailFile(input.Name().name, "", HeaderReason(input));
}

void RequireReadable(const RecordInput& input) {
    RequireHeader(input);
    const std::string& name = input.Name().name;
    if (input.Verify() == VERIFY_OK) return;
    const std::string code = VerifyName(input.Verify());
    const std::string reason =
        "no whole file of the format " + std::string(input.Name().format->name) + " (" + code + ")";
    if (!input.Name().formatNamed) FailFile(name, "", reason);
    TellUser(ErrorLine(name, "", reason));
}

}  // namespace orvale
