#pragma once

// The module, loaded into a program.

#include <filesystem>
#include <memory>

#include "frame/FileInterface.h"
#include "platform/SharedLibrary.h"

namespace orvale {

/// The module, loaded. It must live as long as the file objects that it made.
class LoadedLibrary {
 public:
    /// Loads the module at a path. Throws std::runtime_error with the loader's words, also where one of the four
    /// exports is missing.
    explicit LoadedLibrary(const std::filesystem::path& path);

    /// Gives a file object back to the module that made it, closed.
    struct Release {
        const LoadedLibrary* library;
        void operator()(CFileInterface* object) const;
    };
    using Object = std::unique_ptr<CFileInterface, Release>;

    /// A file object of a number; null where the module has no such format.
    Object Create(FileType type) const;

    const std::filesystem::path& Path() const { return path_; }

    /// Where the module is to be found for a program: beside it, else in the installed place as seen from the program's
    /// folder. The first of the two that is there; the first if none is.
    static std::filesystem::path DefaultPath();

 private:
    std::filesystem::path path_;
    SharedLibrary library_;
    decltype(::CreateObject)* create_;
    decltype(::ReleaseObject)* release_;
};

}  // namespace orvale
