#include "plan/CPlanObjects.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>

#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
// Half the size of a building's or good's mark in pixels (as modPlanSymbols draws them).
constexpr double kMarkHalfPx = 3;

// The node as T when it is exactly that class: cheaper than a cross cast for the hundred
// thousands of children of a large layout.
template <typename T> T* Exactly(INode* node) {
    return node && typeid(*node) == typeid(T) ? static_cast<T*>(node) : nullptr;
}

template <typename Match, typename Visit>
void ForEachBuilding(const CAnlage& anlage, Match collectionMatches, Visit visit) {
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        auto* collection = dynamic_cast<CNodeImmoSammlung*>(chapter.get());
        if (!collection || !collectionMatches(collection->ID()))
            continue;
        for (const auto& child : collection->SubNodes())
            if (auto* building = Exactly<CNodeImmobilie>(child.get()))
                visit(*building);
    }
}

double SegmentDistance(double px, double py, const CVector& a, const CVector& b) {
    double dx = b.X - a.X, dy = b.Y - a.Y;
    double length2 = dx * dx + dy * dy;
    double t = length2 > 0 ? std::clamp(((px - a.X) * dx + (py - a.Y) * dy) / length2, 0.0, 1.0) : 0;
    return std::hypot(px - (a.X + t * dx), py - (a.Y + t * dy));
}

// Whether the centre line passes within reach; most tracks are ruled out by their start and
// length before any geometry is built.
bool TrackNear(const CNodeGleis& track, double x, double y, double reach) {
    double length = 0;
    CVector start = track.Anchor(length);
    if (!(std::hypot(x - start.X, y - start.Y) <= length + reach))
        return false;
    CTrackGeometry geometry(track);
    std::vector<CVector> points = geometry.Polyline(std::max(reach, 1.0));
    if (points.size() == 1)
        return std::hypot(x - points[0].X, y - points[0].Y) <= reach;
    for (size_t i = 1; i < points.size(); ++i)
        if (SegmentDistance(x, y, points[i - 1], points[i]) <= reach)
            return true;
    return false;
}

bool MarkNear(const C3Bein& frame, double x, double y, double reach) {
    return std::fabs(frame.Pos().X - x) <= reach && std::fabs(frame.Pos().Y - y) <= reach;
}
} // namespace

void CPlanObjects::ForEach(const std::function<void(IPaint&)>& visit) const {
    if (!anlage_.RootNode())
        return;
    std::vector<CNodeGleisSys*> systems = TrackSystems(anlage_);
    for (int style = 1; style <= options_.TrackStyleCount(); ++style) {
        if (!options_.TrackVisible(style))
            continue;
        for (CNodeGleisSys* system : systems)
            if (CViewOptions::TrackStyleOfSystem(system->Number()) == style)
                for (CNodeGleis* track : system->Gleise().Tracks())
                    visit(*track);
        ForEachBuilding(
            anlage_, [style](int id) { return CViewOptions::TrackStyleOfCollection(id) == style; }, visit);
    }
    for (int kind = CViewOptions::kFirstImmoKind; kind <= CViewOptions::kLastImmoKind; ++kind)
        if (options_.ImmoVisible(kind))
            ForEachBuilding(
                anlage_, [kind](int id) { return id == kind; }, visit);
    if (!options_.GoodsVisible())
        return;
    for (const auto& chapter : anlage_.RootNode()->SubNodes())
        if (dynamic_cast<CNodeGoods*>(chapter.get()))
            for (const auto& child : chapter->SubNodes())
                if (auto* good = Exactly<CNodeGood>(child.get()))
                    visit(*good);
}

bool CPlanObjects::Holds(const IPaint& object) const {
    switch (object.PaintKind()) {
    case IPaint::Kind::Gleis: {
        const auto* system =
            dynamic_cast<const CNodeGleisSys*>(static_cast<const CNodeGleis&>(object).Parent());
        int style = system ? CViewOptions::TrackStyleOfSystem(system->Number()) : 0;
        return style > 0 && options_.TrackVisible(style);
    }
    case IPaint::Kind::Immobilie: {
        const auto* collection =
            dynamic_cast<const CNodeImmoSammlung*>(static_cast<const CNodeImmobilie&>(object).Parent());
        int id = collection ? collection->ID() : 0;
        if (int style = CViewOptions::TrackStyleOfCollection(id); style > 0)
            return options_.TrackVisible(style);
        return id >= CViewOptions::kFirstImmoKind && id <= CViewOptions::kLastImmoKind &&
               options_.ImmoVisible(id);
    }
    case IPaint::Kind::Good:
        return options_.GoodsVisible() &&
               dynamic_cast<const CNodeGoods*>(static_cast<const CNodeGood&>(object).Parent());
    default:
        return false;
    }
}

void CPlanObjects::SelectAll(CSelection& selection, int mode) const {
    ForEach([&selection, mode](IPaint& object) {
        if (object.Consider(mode))
            selection.Add(object);
    });
}

void CPlanObjects::Invert(CSelection& selection, int mode) const {
    ForEach([&selection, mode](IPaint& object) {
        if (object.Consider(mode))
            selection.SetSelection(object, !object.Selected());
    });
}

void CPlanObjects::SelectInRect(CSelection& selection, const CRect& world, int mode, How how) const {
    CRect rect = world;
    rect.Normalize();
    if (how == How::Replace)
        selection.Clear();
    ForEach([&](IPaint& object) {
        if (!object.Consider(mode) || !object.inRect(rect))
            return;
        if (how == How::Toggle)
            selection.SetSelection(object, !object.Selected());
        else
            selection.Add(object);
    });
}

bool CPlanObjects::Near(IPaint& object, double x, double y, double pixelSize, double tolerancePx, int mode) {
    if (!object.Consider(mode))
        return false;
    const double markReach = (kMarkHalfPx + tolerancePx) * pixelSize;
    switch (object.PaintKind()) {
    case IPaint::Kind::Gleis:
        return TrackNear(static_cast<CNodeGleis&>(object), x, y, tolerancePx * pixelSize);
    case IPaint::Kind::Immobilie:
        return MarkNear(static_cast<CNodeImmobilie&>(object).DreiBein(), x, y, markReach);
    case IPaint::Kind::Good:
        return MarkNear(static_cast<CNodeGood&>(object).DreiBein(), x, y, markReach);
    default:
        return false;
    }
}

IPaint* CPlanObjects::Pick(double x, double y, double pixelSize, double tolerancePx, int mode) const {
    IPaint* topmost = nullptr;
    ForEach([&](IPaint& object) {
        if (Near(object, x, y, pixelSize, tolerancePx, mode))
            topmost = &object;
    });
    return topmost;
}

} // namespace kavrin
