#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "host/Formats.h"

namespace orvale {

/// What the reader of a text format can't make out of a file, found by going through its lines as the reader does.
struct TextScan {
    struct Finding {
        std::size_t count = 0;
        std::size_t firstLine = 0;  // from 1

        void Add(std::size_t line, std::size_t times = 1) {
            if (times != 0 && count == 0) firstLine = line;
            count += times;
        }
    };

    Finding joinedLines;     ///< lines of cards whose key no row of the table holds: they join the value before them
    Finding droppedLines;    ///< the same before a card's first value, and lines that continue an ignored one: dropped
    Finding skippedLines;    ///< lines outside of cards, and of cards of another version: passed over
    Finding cutValues;       ///< values that a zero byte cuts off
    Finding furtherEntries;  ///< entries of a vCalendar behind its first: they all make one
    Finding badBytes;        ///< bytes that are no character of the code page, also those that quoted-printable tells
    const char* unit = "line";  ///< what the first place of a finding counts
};

/// Scans a file of a format up to an offset, its end, or a line that no reader gets past. A file that can't be read has
/// no findings, and neither has one of a format whose reader makes out all that it gets.
TextScan ScanText(FileFormat format, const std::filesystem::path& path, std::uint64_t end);

}  // namespace orvale
