#pragma once

// A count with the first place, of which scans make notes.

#include <cstddef>
#include <string>
#include <vector>

#include "command/formats/RecordSource.h"

namespace orvale {

/// One thing that a scan of a text file counts.
struct Finding {
    std::size_t count = 0;
    std::size_t first = 0;  ///< the line or record where it was met first, from 1

    void Add(std::size_t place, std::size_t times = 1) {
        if (times != 0 && count == 0) first = place;
        count += times;
    }
};

/// Adds what was found, if anything was. `unit` is what places count, such as "line".
inline void AddNote(std::vector<Note>& notes, std::string what, const Finding& finding, const char* unit = "line") {
    if (finding.count != 0)
        notes.push_back({std::move(what), finding.count, std::string(unit) + " " + std::to_string(finding.first)});
}

}  // namespace orvale
