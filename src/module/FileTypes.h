#pragma once

#include <memory>
#include <string_view>

#include "frame/FileInterface.h"

namespace orvale {

/// A format as the module knows it.
struct FileTypeRow {
    FileType type;
    std::u16string_view logWord;  ///< in the line that tells of a creation
    std::unique_ptr<CFileInterface> (*create)();
};

/// The row of a number, or null where the number has no format.
const FileTypeRow* FindFileType(FileType type);

}  // namespace orvale
