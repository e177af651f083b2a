#include "plan/CTrackMark.h"

#include "nodes/CNodeGleis.h"
#include "nodes/CTrackGeometry.h"
#include "plan/CPaintTarget.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

const CNodeGleis* CTrackMark::Track() const {
    return dynamic_cast<const CNodeGleis*>(MarkNode().Parent());
}

bool CTrackMark::Paint(CPaintTarget& target) {
    const CNodeGleis* track = Track();
    return track ? PaintAt(target, CTrackGeometry(*track)) : PaintEpilogue(false);
}

bool CTrackMark::PaintAt(CPaintTarget& target, const CTrackGeometry& track) {
    TrackPlace place = TrackPlaceAt(track, TrackPosition());
    double x = place.x, y = place.y;
    if (!PaintPrologue(target, x, y, place.z, 0))
        return PaintEpilogue(false);
    DrawMark(target, x, y, place);
    return PaintEpilogue(true);
}

bool CTrackMark::inRect(const CRect& world) const {
    const CNodeGleis* track = Track();
    if (!track)
        return false;
    TrackPlace place = TrackPlaceAt(CTrackGeometry(*track), TrackPosition());
    return world.Contains(place.x, place.y);
}

} // namespace kavrin
