#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvale::test {

/// A folder of a test's own, gone with the object.
class ScratchFolder {
 public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

    /// The path of a file in the folder, as file objects take it.
    std::u16string Name(std::string_view name) const { return (path_ / name).u16string(); }

    void Put(std::string_view name, std::string_view bytes) const;

    /// The bytes of a file; fails the test if it isn't there.
    std::string Get(std::string_view name) const;

 private:
    std::filesystem::path path_;
};

}  // namespace orvale::test
