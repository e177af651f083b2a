#pragma once

#include "ContactPlacer.h"
#include "Layout.h"
#include "Rng.h"
#include "TileAnchors.h"
#include "TrackTurtle.h"

namespace kavrin::gen {

/// Lays a tile's railway: a double-track oval main line (both lines anticlockwise), a station on
/// the south straight with a passing track on each side, a crossover and a dead-end goods siding,
/// and a bridge on the north straight reached by ramps. Adds its signals and switching contacts.
class RailLineBuilder {
public:
    RailLineBuilder(Layout& layout, Rng& rng, TileAnchors& anchors);

    void build();

private:
    /// Returns the turtle of the crossover, which still has to merge into the inner line.
    TrackTurtle layOuterLine();
    void layInnerLine(TrackTurtle& crossover);
    void layOuterSiding(TrackTurtle siding, int mergeAt);
    void layFreightSiding(TrackTurtle freight);
    /// The semicircles and the north straight with its bridge, back to where the line started.
    void layLoopRest(TrackTurtle& line, double radius, int firstTrack);
    void layNorthStraight(TrackTurtle& line);
    void addOuterSignals(int approach, int afterCrossover, int switchIntoSiding);
    void addInnerSignals(int approach, int switchIntoSiding);
    void addOtherContacts();
    Vec3 at(double x, double y) const;

    Layout& layout_;
    Rng& rng_;
    TileAnchors& anchors_;
    ContactPlacer contacts_;
    double half_; // half the length of the straights
    int outerSidingExit_ = 0;
    int outerMainExit_ = 0;
    int innerMainExit_ = 0;
};

} // namespace kavrin::gen
