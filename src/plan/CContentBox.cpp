#include "plan/CContentBox.h"

#include <algorithm>

#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CViewOptions.h"

namespace kavrin {

std::optional<CRect> CContentBox::Of(const CAnlage& anlage, const CRect& layout) {
    if (!anlage.RootNode())
        return std::nullopt;
    CRect normal = layout;
    normal.Normalize();
    CContentBox content(normal);
    content.AddTracks(anlage);
    content.AddPlacedObjects(anlage);
    if (content.empty_)
        return std::nullopt;
    return content.box_;
}

void CContentBox::Add(const CVector& point) {
    if (!layout_.Contains(point.X, point.Y))
        return;
    if (empty_) {
        box_ = CRect(point.X, point.Y, point.X, point.Y);
        empty_ = false;
        return;
    }
    box_.Left = std::min(box_.Left, point.X);
    box_.Right = std::max(box_.Right, point.X);
    box_.Bottom = std::min(box_.Bottom, point.Y);
    box_.Top = std::max(box_.Top, point.Y);
}

// Both ends and the middle: a curve bulges beyond its ends, by little at the lengths of real
// pieces.
void CContentBox::AddTracks(const CAnlage& anlage) {
    for (const CNodeGleisSys* system : TrackSystems(anlage)) {
        if (CViewOptions::TrackStyleOfSystem(system->Number()) == 0)
            continue;
        for (const CNodeGleis* track : system->Gleise().Tracks()) {
            CTrackGeometry geometry(*track);
            Add(geometry.Start());
            Add(geometry.PointAt(geometry.Length() / 2));
            Add(geometry.End());
        }
    }
}

void CContentBox::AddPlacedObjects(const CAnlage& anlage) {
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (auto* collection = dynamic_cast<const CNodeImmoSammlung*>(chapter.get())) {
            for (const auto& child : collection->SubNodes())
                if (auto* building = dynamic_cast<const CNodeImmobilie*>(child.get()))
                    Add(building->DreiBein().Pos());
        } else if (dynamic_cast<const CNodeGoods*>(chapter.get())) {
            for (const auto& child : chapter->SubNodes())
                if (auto* good = dynamic_cast<const CNodeGood*>(child.get()))
                    Add(good->DreiBein().Pos());
        }
    }
}

} // namespace kavrin
