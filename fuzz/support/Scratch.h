#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvale::fuzz {

/// A file in the process's own scratch folder, which lies in the folder for temporary files (one in memory is worth a
/// hundred times the speed) and goes when the process ends well. File objects open by path and regular files alone.
class Scratch {
 public:
    explicit Scratch(std::string_view name);
    Scratch(std::string_view name, std::string_view bytes) : Scratch(name) { Put(bytes); }

    void Put(std::string_view bytes) const;
    std::string Get() const;
    void Remove() const;

    const std::string& Path() const { return path_; }

 private:
    std::string path_;
};

}  // namespace orvale::fuzz
