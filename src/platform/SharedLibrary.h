#pragma once

#include <string>

namespace orvale {

/// A dynamically loaded library, unloaded with the object.
class SharedLibrary {
 public:
    /// Loads the library at a path. Throws std::runtime_error with the loader's own words.
    explicit SharedLibrary(const std::string& path);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    /// The exported function of a name. Throws std::runtime_error where there is none.
    template <class Function>
    Function* Get(const char* name) const {
        return reinterpret_cast<Function*>(Symbol(name));
    }

 private:
    void* Symbol(const char* name) const;

    void* handle_;
};

}  // namespace orvale
