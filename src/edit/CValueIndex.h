#pragma once

#include <cstdint>
#include <unordered_map>

namespace kavrin {

class CArrayOfLong;

// The values of a list with the position each first stands at, for procedures that look values
// up in a list handed to them: the answers of a search from the front, at hash speed.
class CValueIndex {
public:
    void Build(const CArrayOfLong& list);
    bool Contains(int32_t value) const { return positions_.count(value) != 0; }
    // The position (from 0) of the value's first entry, -1 when it is not in the list.
    int32_t Position(int32_t value) const;

private:
    std::unordered_map<int32_t, int32_t> positions_;
};

} // namespace kavrin
