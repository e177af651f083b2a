#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kavrin {

// Attribute store of a node: pack index of the name -> text, in insertion order.
class CDictionary {
public:
    struct Entry {
        int16_t key;
        std::string value;
    };

    void Add(int16_t key, std::string value) { entries_.push_back({key, std::move(value)}); }
    void Clear() { entries_.clear(); }
    int32_t Count() const { return static_cast<int32_t>(entries_.size()); }
    bool Exists(int16_t key) const { return FindEntry(key) != nullptr; }
    // The value of a key, or nullptr when absent.
    const std::string* Item(int16_t key) const;
    std::string* Item(int16_t key);
    bool Delete(int16_t key);
    void Reserve(size_t n) { entries_.reserve(n); }
    bool Empty() const { return entries_.empty(); }

    const std::vector<Entry>& Entries() const { return entries_; }

private:
    const Entry* FindEntry(int16_t key) const;
    std::vector<Entry> entries_;
};

} // namespace kavrin
