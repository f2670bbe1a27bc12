#pragma once

#include <string>

#include "frame/FileInterface.h"
#include "platform/SharedLibrary.h"

namespace orvale::test {

/// The module as a host meets it: four functions, and objects whose operations are called by their slots.
struct LoadedModule {
    explicit LoadedModule(const std::string& path = ORVALE_MODULE)
        : library(path),
          create(library.Get<decltype(CreateObject)>("CreateObject")),
          release(library.Get<decltype(ReleaseObject)>("ReleaseObject")) {}

    SharedLibrary library;
    decltype(CreateObject)* create;
    decltype(ReleaseObject)* release;
};

/// A registry file under which a module logs as the switch, in hexadecimal digits, says.
inline std::string LogRegistry(const std::string& module, const std::string& logSwitch) {
    return "[HKEY_CURRENT_USER\\SoftWare\\Tarnwick\\LogFiles]\r\n\"" + module + "\"=dword:" + logSwitch + "\r\n";
}

/// Calls an operation by its slot. The destructor, slot 1, takes two entries of the object's table.
template <class Result = std::int32_t, class... Arguments>
Result Call(CFileInterface* object, int slot, Arguments... arguments) {
    void** const table = *reinterpret_cast<void***>(object);
    return reinterpret_cast<Result (*)(void*, Arguments...)>(table[slot < 2 ? slot : slot + 1])(object, arguments...);
}

}  // namespace orvale::test
