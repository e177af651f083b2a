#include "nodes/CGleise.h"

#include <algorithm>

#include "nodes/CNodeGleis.h"

namespace kavrin {

void CGleise::Add(CNodeGleis* track) {
    tracks_.push_back(track);
    byId_.emplace(track->ID(), track); // a repeated id keeps the first track findable
}

void CGleise::Remove(const CNodeGleis* track) {
    tracks_.erase(std::remove(tracks_.begin(), tracks_.end(), track), tracks_.end());
    auto found = byId_.find(track->ID());
    if (found != byId_.end() && found->second == track)
        byId_.erase(found);
}

CNodeGleis* CGleise::Find(int32_t gleisId) const {
    auto found = byId_.find(gleisId);
    return found == byId_.end() ? nullptr : found->second;
}

void CGleise::Clear() {
    tracks_.clear();
    byId_.clear();
}

} // namespace kavrin
