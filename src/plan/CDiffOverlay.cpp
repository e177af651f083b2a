#include "plan/CDiffOverlay.h"

#include <vector>

#include "compare/CLayoutDiff.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CTrackGeometry.h"
#include "plan/Canvas.h"

namespace kavrin {

namespace {

uint32_t ColorOf(DiffChange change) {
    switch (change) {
    case DiffChange::Hinzugefuegt:
        return CDiffOverlay::kAddedColor;
    case DiffChange::Entfernt:
        return CDiffOverlay::kRemovedColor;
    default:
        return CDiffOverlay::kChangedColor;
    }
}

bool DrawTrack(Canvas& canvas, const INode* node) {
    const auto* track = dynamic_cast<const CNodeGleis*>(node);
    if (!track)
        return false;
    CTrackGeometry geometry(*track);
    std::vector<CVector> points = geometry.Polyline(std::max(geometry.Length() / 16, 50.0));
    std::vector<double> xs, ys;
    for (const CVector& point : points) {
        xs.push_back(point.X);
        ys.push_back(point.Y);
    }
    canvas.Polyline(xs.data(), ys.data(), static_cast<int>(xs.size()));
    return true;
}

} // namespace

void CDiffOverlay::Draw(Canvas& canvas) const {
    // Removed first, so that what stands in the new layout is drawn above it.
    for (DiffChange pass : {DiffChange::Entfernt, DiffChange::Geaendert}) {
        for (const CDiffEntry& entry : diff_.Entries()) {
            if ((entry.change == DiffChange::Entfernt) != (pass == DiffChange::Entfernt))
                continue;
            const bool removed = entry.change == DiffChange::Entfernt;
            const bool hasPlace = removed ? entry.hasOldPlace : entry.hasNewPlace;
            if (!hasPlace)
                continue;
            const CVector& place = removed ? entry.oldPlace : entry.newPlace;
            canvas.SetPen(ColorOf(entry.change), 4);
            if (!DrawTrack(canvas, removed ? entry.oldNode : entry.newNode))
                canvas.Circle(place.X, place.Y, 6, false);
            if (!removed && entry.change != DiffChange::Hinzugefuegt && entry.hasOldPlace) {
                canvas.SetPen(kChangedColor, 1.5);
                canvas.Line(entry.oldPlace.X, entry.oldPlace.Y, place.X, place.Y);
                canvas.Circle(entry.oldPlace.X, entry.oldPlace.Y, 3, true);
            }
        }
    }
    canvas.Flush();
}

} // namespace kavrin
