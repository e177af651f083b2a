#include "TrackSystem.h"

#include <algorithm>
#include <utility>

namespace kavrin::gen {

TrackPiece& TrackSystem::addPiece() {
    TrackPiece& piece = pieces_.emplace_back();
    piece.id = static_cast<int>(pieces_.size());
    return piece;
}

void TrackSystem::connect(int id1, int end1, int id2, int end2, bool virtualLink) {
    if (id1 > id2) {
        std::swap(id1, id2);
        std::swap(end1, end2);
    }
    connections_.push_back({id1, end1, id2, end2, virtualLink});
}

std::vector<TrackConnection> TrackSystem::sortedConnections() const {
    std::vector<TrackConnection> sorted = connections_;
    std::sort(sorted.begin(), sorted.end(), [](const TrackConnection& a, const TrackConnection& b) {
        return a.id1 != b.id1 ? a.id1 < b.id1 : a.end1 < b.end1;
    });
    return sorted;
}

} // namespace kavrin::gen
