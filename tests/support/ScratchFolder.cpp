#include "support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orvale::test {

ScratchFolder::ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "orvale-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no scratch folder " + pattern);
    path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void ScratchFolder::Put(std::string_view name, std::string_view bytes) const {
    std::ofstream out(path_ / name, std::ios::binary | std::ios::trunc);
    out << bytes;
    if (!out.flush()) throw std::runtime_error("can't write " + std::string(name));
}

std::string ScratchFolder::Get(std::string_view name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace orvale::test
