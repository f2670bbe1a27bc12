#include "command/RecordInput.h"

#include <cstring>
#include <fstream>
#include <stdexcept>

#include "command/CommandError.h"

namespace orvale {
namespace {

// Whether only white space stands behind an offset.
bool OnlyWhiteSpaceFrom(const std::filesystem::path& path, std::uint64_t offset) {
    std::ifstream in(path, std::ios::binary);
    in.seekg(static_cast<std::streamoff>(offset));
    for (char c = 0; in.get(c);)
        if (std::strchr(" \t\r\n\v\f", c) == nullptr || c == '\0') return false;
    return true;
}

}  // namespace

RecordInput::RecordInput(const LoadedLibrary& library, const InputName& input) : input_(input) {
    if (!input.format->type) {
        document_.emplace(input.name, input.name);
        return;
    }
    try {
        file_.emplace(library, *input.format->type);
        file_->Open(input.name, OpenMode::kRead);
    } catch (const std::system_error& error) {
        FailFile(input.name, "",
                 error.code() == std::errc::device_or_resource_busy ? "another program holds the file"
                                                                    : error.code().message());
    } catch (const std::runtime_error& error) {
        FailFile(input.name, "", error.what());
    }
    headerRead_ = file_->ReadHeader();
    verifyCode_ = file_->Verify();
    wholeEnd_ = file_->Position();
}

std::optional<std::uint64_t> RecordInput::BrokenAt() {
    if (!file_ || !headerRead_ || input_.format->endRule == EndRule::kNone) return std::nullopt;
    if (wholeEnd_ >= file_->Length()) return std::nullopt;
    if (input_.format->endRule == EndRule::kWhiteSpaceLeft && OnlyWhiteSpaceFrom(input_.name, wholeEnd_))
        return std::nullopt;
    return wholeEnd_;
}

InputName ResolveInput(const std::string& name, const std::string& formatName) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(name, error);
    if (!std::filesystem::exists(status)) FailFile(name, "", error ? error.message() : "no such file");
    if (std::filesystem::is_directory(status)) FailFile(name, "", "is a folder");
    if (!formatName.empty()) return {name, &FormatOfName(formatName), true};
    const Format* const format = DetectFormat(name);
    if (format == nullptr) {
        if (!ReadHead(name)) FailFile(name, "", "can't be read");
        FailFile(name, "", "not recognised as any format");
    }
    return {name, format, false};
}

void RequireReadable(const RecordInput& input) {
    const std::string& name = input.Name().name;
    const std::string code = VerifyName(input.Verify());
    if (!input.HeaderRead()) FailFile(name, "", "its header can't be read (" + code + ")");
    if (input.Verify() == VERIFY_OK) return;
    const std::string reason =
        "no whole file of the format " + std::string(input.Name().format->name) + " (" + code + ")";
    if (!input.Name().formatNamed) FailFile(name, "", reason);
    TellUser(ErrorLine(name, "", reason));
}

}  // namespace orvale
