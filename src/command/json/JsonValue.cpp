#include "command/json/JsonValue.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "command/console/CommandError.h"

namespace orvale {
namespace {

// The library's own way to let go of a value asks for memory, and a destructor must not. Nothing nested is left to it
// here; a document's depth is bounded.
void Dismantle(Json& value) noexcept {  // NOLINT(bugprone-exception-escape): none where the value is structured
    for (Json& inner : value)
        if (inner.is_structured()) Dismantle(inner);
    value.clear();
}

void Delete(Json* value) noexcept {  // NOLINT(bugprone-exception-escape)
    if (value->is_structured()) Dismantle(*value);
    delete value;
}

// Builds the value as the parser tells of it, and keeps the path to where it stands.
class Builder : public nlohmann::json_sax<Json> {
 public:
    Builder(std::string_view text, std::string_view file, std::string_view place, std::size_t firstLine)
        : text_(text), file_(file), place_(place), firstLine_(firstLine) {}

    bool null() override { return Put(nullptr); }
    bool boolean(bool value) override { return Put(value); }
    bool number_integer(number_integer_t value) override { return Put(value); }
    bool number_unsigned(number_unsigned_t value) override { return Put(value); }
    bool number_float(number_float_t value, const string_t&) override { return Put(value); }
    bool string(string_t& value) override { return Put(std::move(value)); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return Open(Json::object()); }
    bool end_object() override { return Close(); }
    bool start_array(std::size_t) override { return Open(Json::array()); }
    bool end_array() override { return Close(); }

    bool key(string_t& name) override {
        Level& level = open_.back();
        const auto [member, isNew] = level.value->get_ref<Json::object_t&>().try_emplace(std::move(name));
        level.key = &member->first;
        member_ = &member->second;
        if (!isNew) FailFile(file_, PathOf(), "the key stands twice");
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override {
        const std::string_view before = text_.substr(0, position);
        const auto line = firstLine_ + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        FailFile(file_, "line " + std::to_string(line), "no JSON here");
    }

    std::shared_ptr<Json> Take() { return std::move(root_); }

 private:
    // An object or list that hasn't ended yet, and the key that was told last in it.
    struct Level {
        Json* value;
        const std::string* key = nullptr;
    };

    template <class Value>
    bool Put(Value&& value) {
        Add(Json(std::forward<Value>(value)));
        return true;
    }

    Json& Add(Json value) {
        if (open_.empty()) return *root_ = std::move(value);
        Json& parent = *open_.back().value;
        if (!parent.is_array()) return *member_ = std::move(value);
        parent.push_back(std::move(value));
        return parent.back();
    }

    bool Open(Json value) {
        open_.push_back({&Add(std::move(value))});
        return true;
    }

    bool Close() {
        open_.pop_back();
        return true;
    }

    std::string PathOf() const {
        std::string path(place_);
        for (const auto& [value, key] : open_)
            path += value->is_array() ? "[" + std::to_string(value->size() - 1) + "]" : "." + Quote(*key);
        return path;
    }

    std::string_view text_;
    std::string_view file_;
    std::string_view place_;
    std::size_t firstLine_;
    std::shared_ptr<Json> root_{new Json, &Delete};
    std::vector<Level> open_;
    Json* member_ = nullptr;  // that the key stands for which was told last
};

}  // namespace

JsonPointer ParseJson(std::string_view text, std::string_view file, std::string_view place, std::size_t firstLine) {
    Builder builder(text, file, place, firstLine);
    Json::sax_parse(text, &builder);
    return builder.Take();
}

}  // namespace orvale
