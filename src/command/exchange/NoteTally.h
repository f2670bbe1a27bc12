#pragma once

#include <map>
#include <string>
#include <vector>

#include "command/formats/RecordSource.h"

namespace orvale {

/// Counts what of a file found no place in a record. Its memory is bounded, whatever kinds a file makes up.
class NoteTally {
 public:
    void Add(const std::string& what, std::size_t line, std::size_t count = 1) {
        if (count == 0) return;
        constexpr std::size_t kMostKinds = 200;
        const bool full = notes_.size() >= kMostKinds && notes_.find(what) == notes_.end();
        Entry& entry = notes_[full ? "values of still other kinds" : what];
        if (entry.count == 0) entry.line = line;
        entry.count += count;
    }

    std::vector<Note> List() const {
        std::vector<Note> list;
        for (const auto& [what, entry] : notes_)
            list.push_back({what, entry.count, "line " + std::to_string(entry.line)});
        return list;
    }

 private:
    struct Entry {
        std::size_t count = 0;
        std::size_t line = 0;
    };
    std::map<std::string, Entry> notes_;
};

}  // namespace orvale
