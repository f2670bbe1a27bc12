// Asks a target's question of files, without the engine: orvale_fuzz_replay TARGET PATH...
// A path that ends in "/" stands for the files in that folder, none if it isn't there.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/Target.h"

namespace {

std::vector<std::filesystem::path> FilesAt(const std::filesystem::path& path) {
    if (path.has_filename()) return {path};
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::exists(path)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(path))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int argc, char** argv) {
    const orvale::fuzz::Target* const target = argc > 2 ? orvale::fuzz::Target::Find(argv[1]) : nullptr;
    if (target == nullptr) {
        std::fprintf(stderr, "usage: orvale_fuzz_replay TARGET PATH...\n");
        return 2;
    }
    std::size_t count = 0;
    for (int i = 2; i < argc; ++i) {
        for (const std::filesystem::path& file : FilesAt(argv[i])) {
            std::ifstream in(file, std::ios::binary);
            if (!in) {
                std::fprintf(stderr, "%s can't be read\n", file.c_str());
                return 1;
            }
            const std::string bytes{std::istreambuf_iterator<char>(in), {}};
            std::fprintf(stderr, "%s\n", file.c_str());  // told first: a "no" ends the process
            target->Ask(bytes);
            ++count;
        }
    }
    std::fprintf(stderr, "%zu inputs of %s\n", count, argv[1]);
    return count > 0 ? 0 : 1;
}
