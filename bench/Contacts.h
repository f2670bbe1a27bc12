#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "records/ContactItem.h"

namespace orvale::bench {

/// A contact such as people keep: a name in one of several scripts, numbers, an address, now and then a note; for one
/// number the same each time.
void MakeContact(std::size_t number, CContactItem& contact);

/// The first contacts.
std::vector<CContactItem> MakeContacts(std::size_t count);

/// A file in the temporary folder, gone with the object.
class ScratchFile {
 public:
    ScratchFile();
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& Path() const { return path_; }
    std::u16string Name() const { return std::u16string(path_.begin(), path_.end()); }
    std::size_t Size() const { return std::filesystem::file_size(path_); }

 private:
    std::string path_;
};

}  // namespace orvale::bench
