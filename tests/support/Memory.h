#pragma once

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace orvale::test {

/// The bytes that are taken from the heap; always 0 under a sanitizer, whose heap doesn't tell.
inline std::size_t HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// What reading all of a file, which should hold so many records, takes from the heap at most.
template <class Driver>
std::size_t PeakOfReading(const std::u16string& path, std::size_t records) {
    const std::size_t before = HeapInUse();
    Driver file(path);
    EXPECT_EQ(file->ReadFileHeader(), 1);
    std::size_t peak = 0;
    for (; file.Next() != nullptr; --records)
        peak = std::max(peak, HeapInUse() - before);
    EXPECT_EQ(records, 0U);
    return peak;
}

inline std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    while (times-- > 0)
        all += text;
    return all;
}

}  // namespace orvale::test
