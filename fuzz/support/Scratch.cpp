#include "support/Scratch.h"

#include <cstdio>
#include <memory>
#include <random>

#include "support/Target.h"

namespace orvale::fuzz {
namespace {

class Folder {
 public:
    Folder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("orvale-fuzz-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path& Path() const { return path_; }

 private:
    std::filesystem::path path_;
};

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

}  // namespace

Scratch::Scratch(std::string_view name) {
    static const Folder folder;
    path_ = folder.Path() / name;
}

void Scratch::Put(std::string_view bytes) const {
    const Stream stream(std::fopen(path_.c_str(), "wb"));
    Must(stream != nullptr, "a scratch file can be made");
    Must(std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size(), "a scratch file can be written");
}

std::string Scratch::Get() const {
    std::string bytes;
    const Stream stream(std::fopen(path_.c_str(), "rb"));
    char buffer[16 * 1024];
    while (const std::size_t got = stream ? std::fread(buffer, 1, sizeof buffer, stream.get()) : 0)
        bytes.append(buffer, got);
    return bytes;
}

void Scratch::Remove() const {
    std::remove(path_.c_str());
}

}  // namespace orvale::fuzz
