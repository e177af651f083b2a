#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace kavrin {

class CNodeGleis;

// The tracks of one track system in the order they were entered, findable by track id.
class CGleise {
public:
    void Add(CNodeGleis* track);
    void Remove(const CNodeGleis* track);
    CNodeGleis* Find(int32_t gleisId) const;
    int32_t Count() const { return static_cast<int32_t>(tracks_.size()); }
    const std::vector<CNodeGleis*>& Tracks() const { return tracks_; }
    void Clear();

private:
    std::vector<CNodeGleis*> tracks_;
    std::unordered_map<int32_t, CNodeGleis*> byId_;
};

} // namespace kavrin
