#include "xml/SuiteFile.h"

#include "platform/Format.h"

namespace orvale {

void SuiteFile::OpenDocument(const Operation& operation, const char16_t* fileName, const std::uint32_t* openFlags,
                             const OpenFailures& failures) {
    const auto require = [&](bool done, std::u16string_view line) {
        if (!done && !line.empty()) operation.Tell(line);
        Require(done);
    };
    opened_ = false;
    Shortage() = false;
    Require(fileName != nullptr && openFlags != nullptr);
    // What the object held of an earlier file goes with its document.
    entries_ = current_ = {};
    identifier_.clear();
    document_.emplace(&Shortage());
    const std::u16string nameLine = Format(u"File Name[%s]", fileName);
    require(document_->Create(fileName) != 0, failures.create);
    if (*openFlags == kModeRead) {
        require(document_->Load() != 0, failures.load);
        identifier_ = document_->GetAttribute(u"id", document_->GetRoot());
        operation.Tell(Format(u"File identifier[%s]", identifier_));
    }
    openFlags_ = *openFlags;
    saved_ = false;
    opened_ = true;
    operation.Tell(nameLine);
}

VerifyCode SuiteFile::JudgeIdentifier(std::u16string_view identifier) const {
    if (!opened_) return VERIFY_NOT_OPENED;
    return identifier_ == identifier ? VERIFY_OK : VERIFY_WRONG_FLAG;
}

NodeHandle SuiteFile::NextEntry(std::u16string_view name) {
    current_ = current_ ? document_->NextSibling(current_) : document_->FirstChild(entries_);
    while (current_ && !document_->HasNameNoCase(current_, name))
        current_ = document_->NextSibling(current_);
    return current_;
}

void SuiteFile::EmptyDocument() {
    saved_ = false;
    entries_ = current_ = {};
    document_->LoadXML(u"");
}

void SuiteFile::SetRootAttributes(NodeHandle root, std::u16string_view identifier) {
    document_->SetAttribute(u"version", ToText(GetFileVersion()), root);
    document_->SetAttribute(u"id", identifier, root);
}

void SuiteFile::AddNumberComment(NodeHandle parent, std::int32_t indent) {
    saved_ = false;
    AddIndent(*document_, parent, indent);
    document_->AddComment(Format(u"NO.%d", nextNumber_++), parent);
}

void SuiteFile::SaveDocument() {
    if (openFlags_ != kCreateReadWrite || saved_) return;
    if (entries_) AddIndent(*document_, entries_, 1);
    if (const NodeHandle root = document_->GetRoot()) AddIndent(*document_, root, 0);
    saved_ = document_->Save() != 0;
}

}  // namespace orvale
