#pragma once

#include <string>
#include <vector>

namespace kavrin {

// The list of recently opened layouts, most recent first, kept in the settings store
// (section "Settings", keys "MruFile1" to "MruFile9").
class CMru {
public:
    static constexpr int kMaxCount = 9;

    // Reads the list from the store; entries whose file no longer exists are left out.
    CMru();

    // Puts the path at the top (once) and saves the list.
    void Add(const std::string& path);
    // Position 1 is the most recent; a position outside the list gives an empty text.
    std::string Item(int position) const;
    int Count() const { return static_cast<int>(files_.size()); }
    int MaxCount() const { return kMaxCount; }

private:
    void Save() const;

    std::vector<std::string> files_;
};

} // namespace kavrin
