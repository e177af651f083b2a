#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kavrin {

class CNodeGleisSys;
class CSelection;

// Track ids as the user lists them: single ids and ranges, separated by commas, semicolons or
// blanks ("12, 40..55, -3"). A range takes the tracks that exist in it, in either order of its
// ends. Track ids are unique only within their track system, so a list is applied to one.
class CGleisIdList {
public:
    struct Item {
        int32_t from = 0;
        int32_t to = 0;
        std::string text; // as the user wrote it
    };

    // False, with a German message, when the text is not such a list or lists nothing.
    bool Parse(std::string_view text, std::string& error);
    const std::vector<Item>& Items() const { return items_; }

    // Adds the listed tracks of the system for which Consider(mode) holds. Returns what it could
    // not take: a single id the system does not have (or that is hidden), a range in which
    // there is nothing to take.
    std::vector<std::string> Select(CSelection& selection, const CNodeGleisSys& system, int mode) const;

private:
    static std::string JoinRanges(std::string_view text);

    std::vector<Item> items_;
};

} // namespace kavrin
