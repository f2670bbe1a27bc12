#include "host/LoadedLibrary.h"

#include "platform/ModulePath.h"
#include "records/LogSwitch.h"

// From the folder of programs to that of the module in an installed tree.
#ifndef ORVALE_MODULE_FROM_BIN
#define ORVALE_MODULE_FROM_BIN "../lib/orvale"
#endif

namespace orvale {
LoadedLibrary::LoadedLibrary(const std::filesystem::path& path)
    : path_(AbsolutePath(path)),  // a bare name would send the loader searching
      library_(path_.native()),
      create_(library_.Get<decltype(::CreateObject)>("CreateObject")),
      release_(library_.Get<decltype(::ReleaseObject)>("ReleaseObject")) {
    library_.Get<decltype(::QZCreateFileObject)>("QZCreateFileObject");
    library_.Get<decltype(::QZReleaseFileObject)>("QZReleaseFileObject");
}

LoadedLibrary::Object LoadedLibrary::Create(FileType type) const {
    CFileInterface* object = nullptr;
    create_(&object, &type);
    return Object(object, Release{this});
}

void LoadedLibrary::Release::operator()(CFileInterface* object) const {
    object->Close();
    library->release_(&object);
}

std::filesystem::path LoadedLibrary::DefaultPath() {
    const std::filesystem::path folder = std::filesystem::path(ProgramPath()).parent_path();
    const std::filesystem::path beside = folder / kModuleFileName;
    const std::filesystem::path installed = folder / ORVALE_MODULE_FROM_BIN / kModuleFileName;
    std::error_code ignored;
    return !std::filesystem::exists(beside, ignored) && std::filesystem::exists(installed, ignored)
               ? installed.lexically_normal()
               : beside;
}

}  // namespace orvale
