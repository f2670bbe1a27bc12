#include "module/FileTypes.h"

#include "native/CALFile.h"
#include "native/EMLFile.h"
#include "native/QZSFile.h"
#include "native/SMSFile.h"
#include "text/CSVFile.h"
#include "text/SSYFile.h"
#include "text/VCalendarFile.h"
#include "text/VCardFile.h"
#include "xml/CDXMLFile.h"
#include "xml/MLXMLFile.h"
#include "xml/PBXMLFile.h"
#include "xml/SMSXMLFile.h"

namespace orvale {
namespace {

template <class File>
std::unique_ptr<CFileInterface> Create() {
    return std::make_unique<File>();
}

// The table of formats: a new one is a row here.
constexpr FileTypeRow kFileTypes[] = {
    {0, u"QZSFile", &Create<CQZSFile>},
    {1, u"SSYFile", &Create<CSSYFile>},
    {2, u"CSVFile", &Create<CCSVFile>},
    {3, u"vCardFile", &Create<CVCardFile>},
    {4, u"SMSFile", &Create<CSMSFile>},
    {5, u"CALFile", &Create<CCALFile>},
    {6, u"vCalendarFile", &Create<CVCalendarFile>},
    {7, u"PBXMLFile", &Create<CPBXMLFile>},
    {8, u"CDXMLFile", &Create<CCDXMLFile>},
    {9, u"SMSXMLFile", &Create<CSMSXMLFile>},
    {10, u"MLXMLFile", &Create<CMLXMLFile>},
    {11, u"EMLFile", &Create<CEMLFile>},
};

}  // namespace

const FileTypeRow* FindFileType(FileType type) {
    for (const FileTypeRow& row : kFileTypes)
        if (row.type == type) return &row;
    return nullptr;
}

}  // namespace orvale
