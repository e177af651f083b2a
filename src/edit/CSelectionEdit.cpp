#include "edit/CSelectionEdit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CConnectionChange.h"
#include "edit/CEditHistory.h"
#include "edit/CEditStep.h"
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

namespace {
// How far the points lie beyond each side of the layout: west, east, south, north (0 inside).
std::array<double, 4> Overshoot(const std::vector<CVector>& points, const CRect& layout) {
    std::array<double, 4> beyond{};
    for (const CVector& p : points) {
        beyond[0] = std::max(beyond[0], layout.Left - p.X);
        beyond[1] = std::max(beyond[1], p.X - layout.Right);
        beyond[2] = std::max(beyond[2], layout.Bottom - p.Y);
        beyond[3] = std::max(beyond[3], p.Y - layout.Top);
    }
    return beyond;
}

void Transformed(std::vector<CVector>& points, const CPlacementChange::Transform& transform) {
    if (transform.kind == CPlacementChange::Transform::Kind::Move) {
        for (CVector& p : points)
            p.Move(transform.a, transform.b, 0);
        return;
    }
    double c = 0, s = 0;
    CVector::TurnFactors(transform.a, c, s);
    for (CVector& p : points) {
        p.Move(-transform.b, -transform.c, 0);
        p.Rotate(c, s);
        p.Move(transform.b, transform.c, 0);
    }
}
} // namespace

namespace {
// A motion of the plan: a turn by `angle` degrees about the origin (factors c, s), then a
// shift by (tx, ty, tz).
struct Motion {
    double angle = 0, c = 1, s = 0, tx = 0, ty = 0, tz = 0;

    static Motion Of(const CPlacementChange::Transform& t) {
        Motion m;
        if (t.kind == CPlacementChange::Transform::Kind::Move) {
            m.tx = t.a;
            m.ty = t.b;
            m.tz = t.c;
            return m;
        }
        m.angle = t.a;
        CVector::TurnFactors(t.a, m.c, m.s);
        m.tx = t.b - (m.c * t.b - m.s * t.c);
        m.ty = t.c - (m.s * t.b + m.c * t.c);
        return m;
    }
    // This motion done after `first`.
    Motion After(const Motion& first) const {
        Motion m;
        m.angle = angle + first.angle;
        m.c = c * first.c - s * first.s;
        m.s = s * first.c + c * first.s;
        m.tx = c * first.tx - s * first.ty + tx;
        m.ty = s * first.tx + c * first.ty + ty;
        m.tz = tz + first.tz;
        return m;
    }
    // No motion, up to the last bits of the arithmetic (cm and degrees).
    bool IsNone() const {
        const double rest = std::fabs(std::fmod(angle, 360.0));
        return (rest < 1e-9 || 360 - rest < 1e-9) && std::hypot(tx, ty) < 1e-6 && std::fabs(tz) < 1e-6;
    }
};

// How far back the steps are searched for a return (an edit of many small steps is rare).
constexpr size_t kLongestReturn = 64;
} // namespace

// A step that, with the steps of the same objects just before it, comes back to where they
// started (four quarter turns, 3 x 33,3 and 99,9 back, a move there and back) gives back the
// placements from before them: the saved file is then the one before, to the byte.
std::unique_ptr<CPlacementChange>
CSelectionEdit::Placement(const CPlacementChange::Transform& transform) const {
    std::vector<IPlaced*> objects = selection_.PlacedObjects();
    Motion total = Motion::Of(transform);
    const CPlacementChange* firstTurn = nullptr;
    for (size_t back = 0; back < kLongestReturn; ++back) {
        const CEditStep* step = history_.StepInForce(back);
        const auto* earlier = step ? dynamic_cast<const CPlacementChange*>(step->OnlyChange()) : nullptr;
        if (!earlier || earlier->Objects() != objects)
            break;
        total = total.After(Motion::Of(earlier->GetTransform()));
        if (earlier->Turning())
            firstTurn = earlier;
        if (total.IsNone())
            return CPlacementChange::Return(std::move(objects), transform, *earlier, firstTurn);
    }
    return CPlacementChange::Apply(std::move(objects), transform);
}

// Half a centimetre of slack: a turn and its arithmetic must not ask about nothing.
bool CSelectionEdit::GoesFurtherOut(const CSelection& selection, const CAnlage& anlage,
                                    const CPlacementChange::Transform& transform) {
    constexpr double kSlack = 0.5;
    const CNodeLandschaft* terrain = FindTerrain(anlage);
    if (!terrain || selection.Empty())
        return false;
    CRect layout = terrain->Rect();
    layout.Normalize();
    std::vector<CVector> points = selection.ExtentPoints();
    const std::array<double, 4> before = Overshoot(points, layout);
    Transformed(points, transform);
    const std::array<double, 4> after = Overshoot(points, layout);
    for (size_t side = 0; side < after.size(); ++side)
        if (after[side] > before[side] + kSlack)
            return true;
    return false;
}

bool CSelectionEdit::Move(double dx, double dy, double dz) {
    if (selection_.Empty() || !CheckMove(dx, dy, dz).empty() || (dx == 0 && dy == 0 && dz == 0))
        return false;
    auto step = std::make_unique<CEditStep>(FormatMessage("Verschieben"));
    step->Add(Placement(CPlacementChange::Transform::Move(dx, dy, dz)));
    history_.Record(std::move(step));
    return true;
}

bool CSelectionEdit::Rotate(double angle, double cx, double cy) {
    if (selection_.Empty() || !CheckRotate(angle, cx, cy).empty() || CVector::IsFullTurn(angle))
        return false;
    auto step = std::make_unique<CEditStep>(FormatMessage("Drehen"));
    step->Add(Placement(CPlacementChange::Transform::Rotate(angle, cx, cy)));
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
