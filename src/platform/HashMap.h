#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace orvale {

/// A map from a 32-bit number to a value, whose order of iteration can be observed in files: 17 buckets, a key's
/// bucket being (key as unsigned, shifted right by 4) modulo 17; iteration goes over the buckets in ascending order
/// and within a bucket from the newest entry to the oldest. Setting a key that is there replaces its value in place.
///
/// The first 64 entries are found by walking the key's bucket; above that an index finds them, so that a file with a
/// million pairs in one map costs no more for each than a small one.
template <class Value>
class HashMap {
 public:
    struct Entry {
        std::int32_t key;
        Value value;
        std::uint32_t next;  // the next older entry of the same bucket, or kNone
    };

    HashMap() = default;
    HashMap(HashMap&&) noexcept = default;
    HashMap& operator=(HashMap&&) noexcept = default;
    ~HashMap() = default;

    /// A copy as the file formats make one: the source's entries are entered in its order of iteration, so each bucket
    /// comes out reversed.
    HashMap(const HashMap& other) { InsertAll(other); }
    HashMap& operator=(const HashMap& other) {
        if (this != &other) {
            Clear();
            InsertAll(other);
        }
        return *this;
    }

    std::size_t size() const { return table_ ? table_->entries.size() : 0; }
    bool empty() const { return size() == 0; }
    void Clear() { table_.reset(); }

    void Set(std::int32_t key, Value value) {
        if (Entry* entry = Lookup(key)) {
            entry->value = std::move(value);
            return;
        }
        if (!table_) table_ = std::make_unique<Table>();
        const auto place = static_cast<std::uint32_t>(table_->entries.size());
        std::uint32_t& head = table_->heads[Bucket(key)];
        table_->entries.push_back(Entry{key, std::move(value), head});
        head = place;
        if (table_->entries.size() < kIndexFrom) return;
        for (std::uint32_t i = place + 1 == kIndexFrom ? 0 : place; i <= place; ++i)
            table_->index.emplace(table_->entries[i].key, i);
    }

    const Value* Find(std::int32_t key) const {
        const Entry* entry = const_cast<HashMap*>(this)->Lookup(key);
        return entry != nullptr ? &entry->value : nullptr;
    }

    class Iterator {
     public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        Iterator() = default;
        explicit Iterator(const HashMap* map) : map_(map->table_ ? map : nullptr) { SkipEmptyBuckets(); }

        reference operator*() const { return map_->table_->entries[place_]; }
        pointer operator->() const { return &**this; }
        Iterator& operator++() {
            place_ = (**this).next;
            SkipEmptyBuckets();
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return place_ == other.place_; }

     private:
        void SkipEmptyBuckets() {
            if (map_ == nullptr) return;
            while (place_ == kNone && bucket_ < kBuckets)
                place_ = map_->table_->heads[bucket_++];
        }

        const HashMap* map_ = nullptr;
        std::uint32_t place_ = kNone;
        std::size_t bucket_ = 0;  // the first bucket not yet entered
    };

    Iterator begin() const { return Iterator(this); }
    Iterator end() const { return Iterator(); }

 private:
    static constexpr std::size_t kBuckets = 17;
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;
    static constexpr std::size_t kIndexFrom = 64;

    struct Table {
        Table() { heads.fill(kNone); }  // NOLINT(modernize-use-equals-default): the check's own error
        std::array<std::uint32_t, kBuckets> heads;
        std::vector<Entry> entries;
        std::map<std::int32_t, std::uint32_t> index;  // no hash: keys can be chosen to meet in one place
    };

    static std::size_t Bucket(std::int32_t key) { return (static_cast<std::uint32_t>(key) >> 4) % kBuckets; }

    Entry* Lookup(std::int32_t key) {
        if (!table_) return nullptr;
        if (table_->entries.size() >= kIndexFrom) {
            const auto found = table_->index.find(key);
            return found != table_->index.end() ? &table_->entries[found->second] : nullptr;
        }
        std::uint32_t place = table_->heads[Bucket(key)];
        while (place != kNone && table_->entries[place].key != key)
            place = table_->entries[place].next;
        return place != kNone ? &table_->entries[place] : nullptr;
    }

    void InsertAll(const HashMap& other) {
        for (const Entry& entry : other)
            Set(entry.key, entry.value);
    }

    std::unique_ptr<Table> table_;  // made at the first insertion: most maps stay empty
};

}  // namespace orvale
