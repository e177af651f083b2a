#pragma once

#include "plan/CPaintState.h"

namespace kavrin {

class CNodeGleis;
class CTrackGeometry;
class INode;
struct TrackPlace;

// What stands at a place along its parent track (signals, contacts): drawn there, found there
// by the rubber band, and moved and turned only with its track. Such marks are shown on
// request only, so they start inactive.
class CTrackMark : public CPaintState {
public:
    CTrackMark() : CPaintState(false) {}

    bool Paint(CPaintTarget& target) override;
    // Paints with the geometry of the parent track, which the track has at hand.
    bool PaintAt(CPaintTarget& target, const CTrackGeometry& track);
    bool inRect(const CRect& world) const override;
    // Distance from the start of its track in cm.
    double DistanceAlongTrack() const { return TrackPosition(); }
    void Move(double, double, double) override {}
    void Rotate(double, double, double) override {}

protected:
    // The node in the tree (its parent is the track).
    virtual const INode& MarkNode() const = 0;
    // Distance from the start of the track in cm.
    virtual double TrackPosition() const = 0;
    // The symbol at (x, y), the offset place on the track.
    virtual void DrawMark(CPaintTarget& target, double x, double y, const TrackPlace& place) = 0;

private:
    const CNodeGleis* Track() const;
};

} // namespace kavrin
