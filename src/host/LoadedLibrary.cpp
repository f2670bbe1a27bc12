#include "host/LoadedLibrary.h"

#include "platform/ModulePath.h"

// From the folder of programs to that of the module in an installed tree.
#ifndef ORVALE_MODULE_FROM_BIN
#define ORVALE_MODULE_FROM_BIN "../lib/orvale"
#endif

namespace orvale {
namespace {

constexpr const char* kFileName = "Orvale.so";

}  // namespace

LoadedLibrary::LoadedLibrary(const std::filesystem::path& path)
    : path_(std::filesystem::absolute(path).lexically_normal()),  // a bare name would send the loader searching
      library_(path_.native()),
      create_(library_.Get<decltype(::CreateObject)>("CreateObject")),
      release_(library_.Get<decltype(::ReleaseObject)>("ReleaseObject")) {}

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
    const std::filesystem::path beside = folder / kFileName;
    const std::filesystem::path installed = folder / ORVALE_MODULE_FROM_BIN / kFileName;
    std::error_code ignored;
    return !std::filesystem::exists(beside, ignored) && std::filesystem::exists(installed, ignored)
               ? installed.lexically_normal()
               : beside;
}

}  // namespace orvale
