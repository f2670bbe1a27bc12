#include "xml/SuiteFile.h"

#include "platform/Format.h"

namespace orvale {
namespace {

constexpr std::int32_t kFileVersion = 100;

void TellStep(const Operation& operation, std::u16string_view line) {
    if (!line.empty()) operation.Tell(line);
}

}  // namespace

SuiteFile::SuiteFile(const SuiteNames& names, const OpenLines& openLines)
    : CFileObject(kFileVersion, openLines.head, true), names_(names), openLines_(openLines) {
    document_.emplace(&Shortage());
}

std::int32_t SuiteFile::Open(const char16_t* fileName, const std::uint32_t* openFlags) {
    Operation operation(*this, openLines_.head, openLines_.words);
    return operation.Run([&] { OpenDocument(operation, fileName, openFlags); });
}

void SuiteFile::OpenDocument(const Operation& operation, const char16_t* fileName, const std::uint32_t* openFlags) {
    opened_ = false;
    Shortage() = false;
    Require(fileName != nullptr && openFlags != nullptr);
    // What the object held of an earlier file goes with its document.
    entries_ = current_ = {};
    identifier_.clear();
    document_.emplace(&Shortage());
    const std::u16string nameLine = Format(u"File Name[%s]", fileName);
    Require(operation, document_->Create(fileName) != 0, openLines_.notCreated);
    if (*openFlags == kModeRead) {
        Require(operation, document_->Load() != 0, openLines_.notLoaded);
        identifier_ = document_->GetAttribute(u"id", document_->GetRoot());
        operation.Tell(Format(u"File identifier[%s]", identifier_));
    }
    openFlags_ = *openFlags;
    saved_ = false;
    opened_ = true;
    operation.Tell(nameLine);
}

std::int32_t SuiteFile::Verify() {
    if (!opened_) return VERIFY_NOT_OPENED;
    return identifier_ == names_.identifier ? VERIFY_OK : VERIFY_WRONG_FLAG;
}

void SuiteFile::GetProfile(const void** profile) {
    if (opened_ && profile != nullptr) *profile = OwnProfile();
}

// ---- reading

NodeHandle SuiteFile::FindProfile(const Operation& operation) {
    return RequireNode(operation, document_->FindChild(u"profile", {}), u"NULL Profile Node");
}

NodeHandle SuiteFile::NextEntry() {
    current_ = current_ ? document_->NextSibling(current_) : document_->FirstChild(entries_);
    while (current_ && !document_->HasNameNoCase(current_, names_.entry))
        current_ = document_->NextSibling(current_);
    return current_;
}

// ---- writing

NodeHandle SuiteFile::StartDocument(const Operation& operation, const StartLines& lines) {
    TellStep(operation, lines.empty);
    saved_ = false;
    entries_ = current_ = {};
    document_->LoadXML(u"");
    TellStep(operation, lines.header);
    document_->CreateHeader();
    TellStep(operation, lines.root);
    const NodeHandle root = RequireNode(operation, document_->CreateRoot(names_.root), lines.noRoot);
    TellStep(operation, lines.attributes);
    document_->SetAttribute(u"version", ToText(GetFileVersion()), root);
    document_->SetAttribute(u"id", names_.identifier, root);
    return root;
}

NodeHandle SuiteFile::StartEntries(NodeHandle root) {
    entries_ = AddElement(*document_, root, names_.entries, 1);
    return entries_;
}

NodeHandle SuiteFile::StartEntry() {
    const NodeHandle entry = AddElement(*document_, entries_, names_.entry, 2);
    if (!entry) return entry;
    saved_ = false;
    AddIndent(*document_, entry, 3);
    document_->AddComment(Format(u"NO.%d", nextNumber_++), entry);
    return entry;
}

void SuiteFile::SaveDocument() {
    if (openFlags_ != kCreateReadWrite || saved_) return;
    if (entries_) AddIndent(*document_, entries_, 1);
    if (const NodeHandle root = document_->GetRoot()) AddIndent(*document_, root, 0);
    saved_ = document_->Save() != 0;
}

}  // namespace orvale
