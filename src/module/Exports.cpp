#include "frame/FileInterface.h"
#include "frame/Log.h"
#include "module/FileTypes.h"

// What the module exports; FileInterface.h says what each function does.

#define ORVALE_EXPORT __attribute__((visibility("default")))

extern "C" {

ORVALE_EXPORT std::int32_t CreateObject(CFileInterface** object, const FileType* type) {
    if (object == nullptr || *object != nullptr || type == nullptr) return 0;
    const orvale::FileTypeRow* const row = orvale::FindFileType(*type);
    if (row == nullptr) return 0;
    try {
        *object = row->create().release();
    } catch (...) {  // no memory for it
        *object = nullptr;
    }
    orvale::LogFormat(u"Orvale - CreateObject : %s[0x%08X]\r\n", row->logWord, static_cast<const void*>(*object));
    return *object != nullptr;
}

ORVALE_EXPORT std::int32_t ReleaseObject(CFileInterface** object) {
    if (object == nullptr) return 0;
    if (*object == nullptr) return 1;
    orvale::LogFormat(u"Orvale - ReleaseObject : Object[0x%08X]\r\n", static_cast<const void*>(*object));
    delete *object;
    *object = nullptr;
    return 1;
}

ORVALE_EXPORT std::int32_t QZCreateFileObject(CFileInterface** object, const FileType* type) {
    return CreateObject(object, type);
}

ORVALE_EXPORT std::int32_t QZReleaseFileObject(CFileInterface** object) {
    return ReleaseObject(object);
}
}
