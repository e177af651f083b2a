#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kavrin {

// Attribute store of a node: pack index of the name -> text, in insertion order. All texts of a
// node share one buffer, so a node with fifty attributes costs two allocations, not fifty.
class CDictionary {
public:
    struct Entry {
        int16_t key;
        std::string_view value; // valid until the store changes
    };

    // The entries in insertion order, read as Entry values.
    class Range {
    public:
        class Iterator {
        public:
            Iterator(const CDictionary* store, size_t index) : store_(store), index_(index) {}
            Entry operator*() const { return store_->At(index_); }
            Iterator& operator++() {
                ++index_;
                return *this;
            }
            bool operator!=(const Iterator& other) const { return index_ != other.index_; }

        private:
            const CDictionary* store_;
            size_t index_;
        };
        explicit Range(const CDictionary* store) : store_(store) {}
        Iterator begin() const { return {store_, 0}; }
        Iterator end() const { return {store_, store_->slots_.size()}; }
        size_t size() const { return store_->slots_.size(); }
        Entry operator[](size_t index) const { return store_->At(index); }

    private:
        const CDictionary* store_;
    };

    void Add(int16_t key, std::string_view value);
    // Replaces the text of a key; false when the store has no such key.
    bool Set(int16_t key, std::string_view value);
    void Clear();
    int32_t Count() const { return static_cast<int32_t>(slots_.size()); }
    bool Exists(int16_t key) const { return Find(key) != nullptr; }
    // The value of a key, or nothing when absent.
    std::optional<std::string_view> Item(int16_t key) const;
    bool Delete(int16_t key);
    // Room for n entries holding `bytes` of text together.
    void Reserve(size_t n, size_t bytes = 0);
    bool Empty() const { return slots_.empty(); }

    Range Entries() const { return Range(this); }

private:
    struct Slot {
        int16_t key;
        uint32_t offset;
        uint32_t length;
    };
    Entry At(size_t index) const;
    const Slot* Find(int16_t key) const;
    // Drops the texts no slot refers to any more, once they outweigh the live ones.
    void Compact();

    std::vector<Slot> slots_;
    std::string text_;
};

} // namespace kavrin
