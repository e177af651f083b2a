#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace kavrin {

// Counts how often each key occurs; the keys stand in the order they were first counted and are
// addressed by their index from 0.
class CEntryCounter {
public:
    // Counts the key once more; answers its index.
    int32_t INCREMENT(int32_t key);
    void Clear();
    // The number of different keys.
    int32_t Count() const { return static_cast<int32_t>(entries_.size()); }
    // Key and count at an index; an index outside 0 .. Count() - 1 is a bounds error.
    int32_t Key(int32_t index) const;
    int32_t Counter(int32_t index) const;
    // The index of a key, NoIndex when it was never counted.
    int32_t Find(int32_t key) const;
    static constexpr int32_t NoIndex() { return -1; }

private:
    struct Entry {
        int32_t key;
        int32_t count;
    };
    const Entry& At(int32_t index) const;

    std::vector<Entry> entries_;
    std::unordered_map<int32_t, int32_t> indexOf_;
};

} // namespace kavrin
