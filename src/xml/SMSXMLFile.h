#pragma once

#include "records/SMSItem.h"
#include "xml/CommentTable.h"
#include "xml/SuiteFile.h"

/// The SMS suite: root `SMS` with the id "suite-SMS", a profile (CSMSProfile) and messages. Every message has all its
/// elements, also those whose text is empty; the profile is carried and binds no message. Element names count in their
/// exact case, but for `sms`.
class CSMSXMLFile : public orvale::SuiteFile {
 public:
    CSMSXMLFile();
    ~CSMSXMLFile() override;

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
    std::int32_t ReadXMLDeviceProfile(NodeHandle node, CSMSProfile& profile);
    std::int32_t ReadXMLBoxProfile(NodeHandle node, CSMSProfile& profile);
    std::int32_t ReadSMSItem(CSMSItem& sms, NodeHandle node);
    std::int32_t WriteXMLProfile(NodeHandle node);
    std::int32_t WriteXMLDeviceProfile(NodeHandle node, const CSMSProfile& profile);
    std::int32_t WriteXMLBoxProfile(NodeHandle node, const CSMSProfile& profile);
    std::int32_t WriteSMSItem(const CSMSItem& sms);
    void WriteCommentTable(const orvale::CommentTable& table, NodeHandle parent, std::int32_t indent);

    CSMSItem sms_;
    CSMSProfile profile_;
};
