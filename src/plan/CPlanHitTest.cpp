#include "plan/CPlanHitTest.h"

#include <algorithm>
#include <cmath>

#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CPlanView.h"
#include "plan/CTrackMark.h"
#include "plan/CViewOptions.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
// The distance from (px, py) to the segment a-b, and the nearest point on it.
double SegmentDistance(double px, double py, const CVector& a, const CVector& b, CVector& nearest) {
    const double dx = b.X - a.X, dy = b.Y - a.Y;
    const double length2 = dx * dx + dy * dy;
    double t = length2 > 0 ? ((px - a.X) * dx + (py - a.Y) * dy) / length2 : 0;
    t = std::clamp(std::isfinite(t) ? t : 0.0, 0.0, 1.0);
    nearest = CVector(a.X + t * dx, a.Y + t * dy, a.Z + t * (b.Z - a.Z));
    return std::hypot(px - nearest.X, py - nearest.Y);
}

PlacedKind KindOfCollection(int id) {
    if (CViewOptions::TrackStyleOfCollection(id) != 0)
        return PlacedKind::TrackObject;
    return id == CViewOptions::kLastImmoKind ? PlacedKind::Landscape : PlacedKind::Building;
}
} // namespace

CPlanHitTest::Hit CPlanHitTest::At(const CAnlage& anlage, const CPlanView& view, double x, double y,
                                   double tolerance) {
    if (!anlage.RootNode() || !std::isfinite(x) || !std::isfinite(y))
        return {};
    CPlanHitTest test(x - view.PaintXOffset, y - view.PaintYOffset, tolerance);
    test.VisitPlacedObjects(anlage);
    for (CNodeGleisSys* system : TrackSystems(anlage))
        if (CViewOptions::TrackStyleOfSystem(system->Number()) != 0)
            for (CNodeGleis* track : system->Gleise().Tracks())
                if (track->Consider(0))
                    test.VisitTrack(*track);
    return test.point_ ? test.point_ : test.track_;
}

void CPlanHitTest::Offer(INode& node, const CVector& at, double reach) {
    const double distance = std::hypot(at.X - x_, at.Y - y_);
    if (!(distance <= tolerance_ + reach) || (point_ && distance >= pointDistance_))
        return;
    point_ = {&node, at};
    pointDistance_ = distance;
}

void CPlanHitTest::VisitPlacedObjects(const CAnlage& anlage) {
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (auto* collection = dynamic_cast<const CNodeImmoSammlung*>(chapter.get())) {
            const double reach = SymbolReach(KindOfCollection(collection->ID()));
            for (const auto& child : collection->SubNodes())
                if (auto* building = dynamic_cast<CNodeImmobilie*>(child.get());
                    building && building->Consider(0))
                    Offer(*building, building->DreiBein().Pos(), reach);
        } else if (dynamic_cast<const CNodeGoods*>(chapter.get())) {
            for (const auto& child : chapter->SubNodes())
                if (auto* good = dynamic_cast<CNodeGood*>(child.get()); good && good->Consider(0))
                    Offer(*good, good->DreiBein().Pos(), SymbolReach(PlacedKind::Goods));
        }
    }
}

// A track is looked at closely only when the point lies within its length of its start; its
// signals and contacts are offered as points, the track itself by its centre line.
void CPlanHitTest::VisitTrack(CNodeGleis& track) {
    const CTrackGeometry geometry(track);
    const CVector start = geometry.Start();
    if (!(std::hypot(start.X - x_, start.Y - y_) <= geometry.Length() + tolerance_))
        return;
    for (const auto& child : track.SubNodes())
        if (auto* mark = dynamic_cast<CTrackMark*>(child.get()); mark && mark->Consider(0)) {
            const TrackPlace place = TrackPlaceAt(geometry, mark->DistanceAlongTrack());
            Offer(*child, CVector(place.x, place.y, place.z), 0);
        }
    const std::vector<CVector> points = geometry.Polyline(std::max(10.0, tolerance_));
    for (size_t i = 1; i < points.size(); ++i) {
        CVector nearest;
        const double distance = SegmentDistance(x_, y_, points[i - 1], points[i], nearest);
        if (distance <= tolerance_ && (!track_ || distance < trackDistance_)) {
            track_ = {&track, nearest};
            trackDistance_ = distance;
        }
    }
}

} // namespace kavrin
