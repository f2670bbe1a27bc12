#pragma once

#include "records/CalendarItem.h"
#include "xml/SuiteFile.h"

/// The calendar suite: root `calendar` with the id "suite-calendar", a profile (CCalendarProfile) and items, each
/// explained by comments of its own. An item keeps all but its `operation`, its nameless members and the fields of
/// types that have no element here. Element names count in any case, but for `profile`, `calendarentries` and `config`.
///
/// Unlike the other files this one isn't closed by its destructor: what is released without a Close is lost.
class CCDXMLFile : public orvale::SuiteFile {
 public:
    CCDXMLFile();

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

    void ReadOfProfile(const orvale::Operation& operation, NodeHandle node);
    void ReadConfig(NodeHandle node, std::int32_t type);
    void LoadCalendar(CCalendarItem& item, NodeHandle node);
    void WriteConfig(NodeHandle profile, const CCalendarConfig& config);
    std::int32_t WriteCalendar(const CCalendarItem& item);
    void WriteFields(const CCalendarItem& item, NodeHandle node);

    CCalendarItem item_;
    CCalendarProfile profile_;
};
