#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kavrin {

// Stores each distinct text once and hands out stable 16-bit indices from 1.
// A hash index sits beside the list; the answers are those of a linear search.
class CStringPack {
public:
    // `contents` names what the pack holds ("Elementnamen"), for the overflow error.
    explicit CStringPack(std::string contents = "Texte");

    int16_t PutString(std::string_view text);
    const std::string& GetString(int16_t index) const;
    int16_t GetIndex(std::string_view text) const;
    int16_t Count() const { return count_; }
    // Forgets every text. Indices handed out before become invalid: only for a process that
    // holds no node between runs over unrelated layouts (the fuzzer), never in the editor.
    void Reset();
    // Counts the resets, so that what caches indices of a pack can tell that they went stale.
    uint32_t Generation() const { return generation_; }

    static constexpr int16_t kMaxTexts = 32767;

private:
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
    };
    static size_t CacheSlot(std::string_view text);

    std::vector<std::string> texts_; // index 0 unused
    // Element and attribute names repeat millions of times: a cheap direct-mapped cache in front
    // of the hash index saves hashing them again and again.
    std::vector<int16_t> cache_ = std::vector<int16_t>(512, 0);
    std::unordered_map<std::string, int16_t, Hash, std::equal_to<>> index_;
    int16_t count_ = 0;
    uint32_t generation_ = 0;
    std::string contents_;
};

// A pack of file names (model files of buildings and goods).
class CFilenamePack : public CStringPack {
public:
    CFilenamePack() : CStringPack("Dateinamen") {}
};

// The process-wide packs.
CStringPack& ElementNames();
CStringPack& AttributeNames();
CStringPack& ClassTexts();
CFilenamePack& FileNames();

} // namespace kavrin
