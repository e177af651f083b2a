#include "edit/CSelectionEdit.h"

#include <cmath>
#include <memory>

#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CConnectionChange.h"
#include "edit/CEditHistory.h"
#include "edit/CPlacementChange.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/LayoutLookup.h"
#include "plan/CSelection.h"

namespace kavrin {

namespace {
bool Usable(double value, double limit) {
    return std::isfinite(value) && std::fabs(value) <= limit;
}

std::string DistanceProblem(double cm, const char* what) {
    if (Usable(cm, CSelectionEdit::kMaxDistance))
        return {};
    if (!std::isfinite(cm))
        return FormatMessage("%1 ist keine gültige Zahl.", what);
    return FormatMessage("%1 ist zu groß: erlaubt sind höchstens 100 km in jeder Richtung.", what);
}
} // namespace

std::string CSelectionEdit::CheckMove(double dx, double dy, double dz) {
    for (auto [value, what] :
         {std::pair{dx, "Die Entfernung nach Osten"}, std::pair{dy, "Die Entfernung nach Norden"},
          std::pair{dz, "Die Entfernung nach oben"}})
        if (std::string problem = DistanceProblem(value, what); !problem.empty())
            return problem;
    return {};
}

std::string CSelectionEdit::CheckRotate(double angle, double cx, double cy) {
    if (!std::isfinite(angle))
        return FormatMessage("Der Winkel ist keine gültige Zahl.");
    if (!Usable(angle, kMaxAngle))
        return FormatMessage("Der Winkel ist zu groß: erlaubt sind höchstens 36.000 Grad in jeder Richtung.");
    for (auto [value, what] :
         {std::pair{cx, "Die Koordinate des Drehpunkts"}, std::pair{cy, "Die Koordinate des Drehpunkts"}})
        if (std::string problem = DistanceProblem(value, what); !problem.empty())
            return problem;
    return {};
}

bool CSelectionEdit::LeavesLayout(const CSelection& selection, const CAnlage& anlage, double dx, double dy) {
    const CNodeLandschaft* terrain = FindTerrain(anlage);
    CBox box = selection.BoundingBox();
    if (!terrain || box.IsEmpty())
        return false;
    CRect layout = terrain->Rect();
    layout.Normalize();
    return box.West + dx < layout.Left || box.East + dx > layout.Right || box.South + dy < layout.Bottom ||
           box.North + dy > layout.Top;
}

bool CSelectionEdit::Move(double dx, double dy, double dz) {
    if (selection_.Empty() || !CheckMove(dx, dy, dz).empty() || (dx == 0 && dy == 0 && dz == 0))
        return false;
    auto step = std::make_unique<CEditStep>(FormatMessage("Verschieben"));
    step->Add(
        CPlacementChange::Apply(selection_.PlacedObjects(), CPlacementChange::Transform::Move(dx, dy, dz)));
    history_.Record(std::move(step));
    return true;
}

bool CSelectionEdit::Rotate(double angle, double cx, double cy) {
    if (selection_.Empty() || !CheckRotate(angle, cx, cy).empty() || angle == 0)
        return false;
    auto step = std::make_unique<CEditStep>(FormatMessage("Drehen"));
    step->Add(CPlacementChange::Apply(selection_.PlacedObjects(),
                                      CPlacementChange::Transform::Rotate(angle, cx, cy)));
    history_.Record(std::move(step));
    return true;
}

size_t CSelectionEdit::CutSelection() {
    auto step = std::make_unique<CEditStep>(FormatMessage("Auswahl lösen"));
    size_t cut = 0;
    for (CSelection::Cut& done : selection_.CutSelection()) {
        cut += done.removed.records.size();
        step->Add(CConnectionChange::Cut(*done.system, std::move(done.removed)));
    }
    history_.Record(std::move(step));
    return cut;
}

} // namespace kavrin
