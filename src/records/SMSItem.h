#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "records/LayoutVersion.h"
#include "records/ValueTables.h"

/// One stored short message. Host and library share it by its layout.
class CSMSItem {
 public:
    /// The time of a new message is the present one.
    CSMSItem();
    CSMSItem(const CSMSItem&) = default;
    CSMSItem& operator=(const CSMSItem&) = default;  ///< all but the version

    /// Sets everything but the version to its value in a new message.
    void Reset() { *this = CSMSItem(); }

    orvale::LayoutVersion<100> version;
    std::int32_t reserved1 = 0;  ///< the host's, as are the other two and auxText: no format stores them
    std::int32_t reserved2 = 0;
    std::int32_t storageid = 0;  ///< where the message lies on the phone: SMS_STORAGE_
    std::int32_t status = 0;     ///< the phone's own word
    std::int32_t listtype = 0;   ///< type of the box that holds the message
    std::u16string phonenumber;  ///< the other party's
    std::u16string auxText;
    std::u16string content;
    std::u16string time;  ///< any text; by default local time as "2010-07-26 06:00:15"
    std::u16string name;  ///< the other party's
    std::int32_t reserved3 = 0;
    std::int32_t smstype = 0;  ///< stored by the suite document alone
};

/// One box of a phone's messages. The three display lists are parallel, and so are the two of the subboxes.
class CSMSBoxItem {
 public:
    orvale::LayoutVersion<100> version;
    std::int32_t type = 0;  ///< SMS_BOX_
    std::u16string name;
    std::int32_t capacity = 0;  ///< how many messages fit
    std::int32_t used = 0;      ///< how many are there
    std::int32_t position = 0;
    std::u16string location;
    std::int32_t config = 0;                    ///< SMBX_
    std::vector<std::u16string> displayLabels;  ///< one for each column that is displayed
    std::vector<std::uint32_t> displayIndexes;
    std::vector<std::uint32_t> displayWidths;
    std::vector<std::uint32_t> subboxIds;
    std::vector<std::u16string> subboxNames;
};

/// What a phone can store of messages, and do with them. The two storage lists are parallel.
class CSMSProfile {
 public:
    /// Sets the numbers to 0 and empties the boxes. Storages, handset and dllname keep what they hold.
    void Reset();

    /// Makes this a deep copy of another profile: dllname gets its ".dll" (see DriverName), a null box is left out, the
    /// version isn't copied.
    void CopyFrom(const CSMSProfile& other);

    orvale::LayoutVersion<100> version;
    std::int32_t config = 0;  ///< SMMD_
    std::int32_t MaxRecipientNum = 0;
    std::int32_t MaxPageNum = 0;
    std::int32_t MaxSSMPageEng = 0;
    std::int32_t MaxSSMPageDBC = 0;
    std::int32_t MaxLSMPageEng = 0;
    std::int32_t MaxLSMPageDBC = 0;
    std::vector<std::uint32_t> storageIds;            ///< SMS_STORAGE_
    std::vector<std::u16string> storageNames;         ///< as they are shown
    std::vector<std::unique_ptr<CSMSBoxItem>> boxes;  ///< entries may be null
    std::u16string handset;
    std::u16string dllname;  ///< name of the phone's driver module

 private:
    void CopyNumbers(const CSMSProfile& other);
};
