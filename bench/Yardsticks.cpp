#include "Yardsticks.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvale::bench {
namespace {

class Buffered {
 public:
    explicit Buffered(const std::string& path) : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~Buffered() { close(descriptor_); }
    Buffered(const Buffered&) = delete;
    Buffered& operator=(const Buffered&) = delete;

    // All the bytes, or false at the end of the file.
    bool Take(void* to, std::size_t count) {
        auto* out = static_cast<char*>(to);
        while (count > 0) {
            if (start_ == end_ && !Fill()) return false;
            const std::size_t size = std::min(count, end_ - start_);
            std::memcpy(out, bytes_.data() + start_, size);
            start_ += size;
            out += size;
            count -= size;
        }
        return true;
    }

    // A line without its line end; false at the end of the file.
    bool Line(std::string& line) {
        line.clear();
        while (start_ != end_ || Fill()) {
            const char* const from = bytes_.data() + start_;
            const auto* const feed = static_cast<const char*>(std::memchr(from, '\n', end_ - start_));
            const char* const to = feed != nullptr ? feed : bytes_.data() + end_;
            line.append(from, to);
            start_ = static_cast<std::size_t>(to - bytes_.data()) + (feed != nullptr);
            if (feed == nullptr) continue;
            if (!line.empty() && line.back() == '\r') line.pop_back();
            return true;
        }
        return !line.empty();
    }

 private:
    bool Fill() {
        const ssize_t got = read(descriptor_, bytes_.data(), bytes_.size());
        start_ = 0;
        end_ = got > 0 ? static_cast<std::size_t>(got) : 0;
        return end_ != 0;
    }

    int descriptor_;
    std::vector<char> bytes_ = std::vector<char>(64 * 1024);
    std::size_t start_ = 0;
    std::size_t end_ = 0;
};

struct Field {
    std::int32_t type;
    std::u16string data;
    std::u16string extra;
};

bool TakeText(Buffered& file, std::u16string& text) {
    std::uint32_t length = 0;
    if (!file.Take(&length, sizeof length)) return false;
    text.resize(length);
    return file.Take(text.data(), 2 * length);
}

}  // namespace

std::size_t ReadPrefixedTexts(const std::string& path) {
    Buffered file(path);
    char header[24];
    file.Take(header, sizeof header);
    std::size_t fields = 0;
    std::vector<std::unique_ptr<Field>> contact;
    std::u16string group;
    for (std::int32_t head[2]; file.Take(head, sizeof head);) {  // storage and field count
        contact.clear();
        for (std::int32_t left = head[1]; left > 0; --left, ++fields) {
            auto field = std::make_unique<Field>();
            std::int32_t number = 0;
            file.Take(&field->type, sizeof field->type);
            TakeText(file, field->data);
            file.Take(&number, sizeof number);
            TakeText(file, field->extra);
            file.Take(&number, sizeof number);
            for (std::int32_t key = 0; number > 0; --number) {
                file.Take(&key, sizeof key);
                TakeText(file, group);
            }
            contact.push_back(std::move(field));
        }
    }
    return fields;
}

std::size_t ReadKeyedLines(const std::string& path) {
    static const std::unordered_map<std::string_view, std::int32_t> ids = {{"N", 2},
                                                                           {"FN", 5},
                                                                           {"TEL;CELL;VOICE", 104},
                                                                           {"TEL;HOME;VOICE", 102},
                                                                           {"EMAIL;PREF;INTERNET", 1000},
                                                                           {"ADR;HOME", 2000},
                                                                           {"ORG", 4032},
                                                                           {"NOTE", 3002},
                                                                           {"REV", -1},
                                                                           {"NOTE;ENCODING=QUOTED-PRINTABLE", 3002}};
    Buffered file(path);
    std::size_t fields = 0;
    std::vector<std::unique_ptr<Field>> contact;
    for (std::string line; file.Line(line);) {
        if (line == "BEGIN:VCARD") contact.clear();
        const std::size_t colon = std::min(line.find(':'), line.size());
        const auto id = ids.find(std::string_view(line).substr(0, colon));
        if (id == ids.end()) continue;
        auto field = std::make_unique<Field>();
        field->type = id->second;
        field->data.assign(line.begin() + static_cast<std::ptrdiff_t>(colon) + 1, line.end());
        contact.push_back(std::move(field));
        ++fields;
    }
    return fields;
}

}  // namespace orvale::bench
