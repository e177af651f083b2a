#pragma once

#include <cstdint>
#include <vector>

#include "plan/CHoehenFilter.h"
#include "plan/CLabelLayer.h"
#include "plan/CPlanView.h"
#include "plan/Canvas.h"

namespace kavrin {

class CNodeGleis;
class IPaint;

// What an object that stands by its placement frame is, which decides its symbol.
enum class PlacedKind { Building, Landscape, TrackObject, Goods };

// Everything a node needs while it paints itself: the canvas, the view it culls against, the
// height filter, the colour of its kind and what else is to be shown. One target serves a
// whole DrawAll; its point buffers are reused from node to node.
//
// Wide tracks are drawn in layers: their bands on Ground, road fills on Fill, and all other line
// work and marks on Draw, each layer above the one before over the whole plan. Names and ids go
// to the label layer, which places them at the end.
class CPaintTarget {
public:
    CPaintTarget(Canvas& canvas, const CPlanView& view, const CHoehenFilter& filter)
        : ground_(&canvas), fill_(&canvas), draw_(&canvas), view_(view), filter_(filter) {}

    Canvas& Draw() const { return *draw_; }
    Canvas& Ground() const { return *ground_; }
    Canvas& Fill() const { return *fill_; }
    void SetLayers(Canvas& ground, Canvas& fill, Canvas& draw) {
        ground_ = &ground;
        fill_ = &fill;
        draw_ = &draw;
    }
    const CPlanView& View() const { return view_; }
    const CHoehenFilter& Filter() const { return filter_; }
    CLabelLayer& Labels() { return labels_; }

    // The colour of the kind being drawn, and the plan's background.
    uint32_t Color = 0;
    uint32_t Background = 0xFFFFFF;
    bool WithNames = false;
    bool WithSignals = false;
    bool TrackMarks = false;
    // The track-style group being drawn (1 to 4; 0 outside the track styles), and the track
    // that is painting itself.
    int TrackStyle = 0;
    const CNodeGleis* Track = nullptr;
    PlacedKind Placed = PlacedKind::Building;
    // The selected objects are drawn again at the end, in the highlight colour.
    bool Highlighting = false;

    // The sampling step of curves in world units: a few pixels, never below 10 cm.
    double CurveStep() const;
    // The length of one pixel in world units.
    double PixelSize() const { return view_.PixelSize(); }
    // The width in pixels of the band the current track is drawn as; 0 for a hairline.
    double TrackBandPixels() const;

    // A selected object that passed the culling test, with what its symbol depends on.
    struct Found {
        IPaint* node;
        PlacedKind placed;
        int trackStyle;
        uint32_t color;
        const CNodeGleis* track;
    };
    void NoteSelected(IPaint* node) { selected_.push_back({node, Placed, TrackStyle, Color, Track}); }
    std::vector<Found> TakeSelected() { return std::move(selected_); }

    // Scratch buffers for polylines.
    std::vector<double> Xs;
    std::vector<double> Ys;

private:
    Canvas* ground_;
    Canvas* fill_;
    Canvas* draw_;
    const CPlanView& view_;
    const CHoehenFilter& filter_;
    CLabelLayer labels_;
    std::vector<Found> selected_;
};

} // namespace kavrin
