#pragma once

#include "records/EmailItem.h"
#include "xml/CommentTable.h"
#include "xml/SuiteFile.h"

/// The email suite: root `email` with the id "suite-email", a profile (CEmailProfile) and messages. A message has its
/// six numbers always, its texts, dates and attachments only where there is one. Element names count in their exact
/// case, but for the `email` of a message.
///
/// The account of a message, and each subfolder of a box, is a text that holds a run of XML elements. It stands in the
/// document as those elements, each with its whole text; what isn't well-formed is lost. Reading puts the run together
/// again, without escaping its texts.
class CMLXMLFile : public orvale::SuiteFile {
 public:
    CMLXMLFile();
    ~CMLXMLFile() override;

    using SuiteFile::Read;
    using SuiteFile::Write;
    void Close() override;
    void SetProfile(const void* profile) override;
    std::int32_t ReadFileHeader() override;
    std::int32_t Verify() override;
    std::int32_t Read(void** record) override;
    std::int32_t WriteFileHeader() override;
    std::int32_t Write(const void* record) override;

 private:
    const void* OwnProfile() const override { return &profile_; }

    std::int32_t ReadXMLProfile(NodeHandle node);
    std::int32_t ReadXMLDeviceProfile(NodeHandle node);
    std::int32_t ReadXMLAccountProfile(NodeHandle node);
    std::int32_t ReadXMLAccountBoxProfile(NodeHandle node, CEmailAccount& account);
    std::int32_t ReadXMLBoxFolderProfile(std::u16string& folder, NodeHandle node);
    std::int32_t ReadEmail(CEmailItem& email, NodeHandle node);
    void GatherFragment(std::u16string& fragment, NodeHandle node);

    std::int32_t WriteXMLProfile(NodeHandle node);
    std::int32_t WriteXMLDeviceProfile(NodeHandle profile);
    std::int32_t WriteXMLAccountProfile(NodeHandle profile);
    std::int32_t WriteXMLAccountBoxProfile(NodeHandle node, const CEmailAccount& account);
    std::int32_t WriteXMLBoxFolderProfile(const std::u16string& folder, NodeHandle node);
    std::int32_t WriteEmail(const CEmailItem& email);
    void WriteAccount(const CEmailItem& email, NodeHandle node);
    void WriteAccessory(const CEmailItem& email, NodeHandle node);
    void SpreadFragment(const std::u16string& fragment, NodeHandle node, std::int32_t indent);
    void WriteCommentTable(const orvale::CommentTable& table, NodeHandle parent, std::int32_t indent);

    CEmailItem email_;
    CEmailProfile profile_;
};
