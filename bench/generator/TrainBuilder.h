#pragma once

#include "Layout.h"
#include "Rng.h"
#include "TileAnchors.h"

#include <initializer_list>
#include <string>

namespace kavrin::gen {

/// Puts a tile's vehicles on its tracks: a passenger train running on the main line, a goods train
/// waiting at an exit signal, a tram and a bus.
class TrainBuilder {
public:
    TrainBuilder(Layout& layout, Rng& rng, const TileAnchors& anchors, int tileNumber);

    void build();

private:
    Train* addTrain(const std::string& name, int system, int track, double speed,
                    std::initializer_list<const VehicleModel*> cars);

    Layout& layout_;
    Rng& rng_;
    const TileAnchors& anchors_;
    std::string suffix_;
};

} // namespace kavrin::gen
