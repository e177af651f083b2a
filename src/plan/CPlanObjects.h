#pragma once

#include <functional>

#include "nodes/CRect.h"

namespace kavrin {

class CAnlage;
class CSelection;
class CViewOptions;
class IPaint;

// The objects of the plan that a selection can hold: the tracks of the track systems drawn on
// the plan, the buildings and the goods, of the kinds the view options show, in the order in
// which the plan draws them (later ones lie above earlier ones). The selection commands of the
// window and of the command line work through it; `mode` is that of IPaint::Consider.
class CPlanObjects {
public:
    enum class How { Replace, Add, Toggle };

    CPlanObjects(const CAnlage& anlage, const CViewOptions& options) : anlage_(anlage), options_(options) {}

    void ForEach(const std::function<void(IPaint&)>& visit) const;
    // Whether the object is one of them (its kind is shown and is a kind of the plan).
    bool Holds(const IPaint& object) const;

    void SelectAll(CSelection& selection, int mode) const;
    // Selected objects out, unselected ones in.
    void Invert(CSelection& selection, int mode) const;
    // The rubber band: what lies inside the rectangle (IPaint::inRect).
    void SelectInRect(CSelection& selection, const CRect& world, int mode, How how) const;
    // The topmost object under a point: a track whose centre line passes within `tolerancePx`
    // pixels, a building or good whose mark does. Null when there is none.
    IPaint* Pick(double x, double y, double pixelSize, double tolerancePx, int mode) const;
    // The test of Pick for one object (considered by `mode` and under the point).
    static bool Near(IPaint& object, double x, double y, double pixelSize, double tolerancePx, int mode);

private:
    const CAnlage& anlage_;
    const CViewOptions& options_;
};

} // namespace kavrin
