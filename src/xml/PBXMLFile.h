#pragma once

#include "records/ContactItem.h"
#include "records/PhonebookProfile.h"
#include "xml/PhonebookLookup.h"
#include "xml/SuiteFile.h"

/// The phonebook suite: root `phonebook` with the id "suite-phonebook", a profile (CPhonebookProfile) and contacts. A
/// contact keeps its Storage, the groups of its name field, and type and data of its fields. A field stands in an
/// element named by a code, "C00" and on: the place of its type in the type set of the contact's device. So contacts
/// are read by the profile of their own file, and ReadFileHeader comes before Read. Element names count in their exact
/// case, but for `contact`.
class CPBXMLFile : public orvale::SuiteFile {
 public:
    CPBXMLFile();
    ~CPBXMLFile() override;

    using SuiteFile::Read;
    using SuiteFile::Write;
    void Close() override;
    void SetProfile(const void* profile) override;
    std::int32_t ReadFileHeader() override;
    std::int32_t Read(void** record) override;
    std::int32_t WriteFileHeader() override;
    std::int32_t Write(const void* record) override;

 private:
    const void* OwnProfile() const override { return &profile_; }

    std::int32_t ReadXMLProfile(NodeHandle node);
    void ReadXMLSpeedDial(NodeHandle node);
    void ReadXMLDevice(NodeHandle node, CPhonebookDevice& device);
    void ReadXMLTypeSet(NodeHandle node, CPhonebookDevice& device);
    void ReadXMLMemoryLocation(NodeHandle node, CPhonebookDevice& device);
    void ReadXMLGroupSet(NodeHandle node, CPhonebookDevice& device);
    void ReadXMLContact(CContactItem& contact, NodeHandle node);
    void ReadFields(CContactItem& contact, NodeHandle node, const orvale::PhonebookLookup::Device& device);
    void ReadGroups(CContactField& name, NodeHandle node, const orvale::PhonebookLookup::Device& device);

    // A failure within one of these ends its element where it stands, and the header goes on.
    void WriteXMLSpeedDial(NodeHandle profile);
    void WriteXMLDevice(NodeHandle profile, const CPhonebookDevice& device);
    void WriteXMLTypeSet(NodeHandle node, const CPhonebookDevice& device);
    void WriteXMLMemoryLocation(NodeHandle node, const CPhonebookDevice& device);
    void WriteXMLGroupSet(NodeHandle node, const CPhonebookDevice& device);
    void WriteXMLContact(const CContactItem& contact);

    CContactItem contact_;
    CPhonebookProfile profile_;
    orvale::PhonebookLookup lookup_;  // of profile_
};
