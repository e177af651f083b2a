#pragma once

#include "ContactPlacer.h"
#include "Layout.h"
#include "Rng.h"
#include "TileAnchors.h"

namespace kavrin::gen {

/// Lays a tile's tramway (a loop with a passing stop), its road (a ring with a three-way junction,
/// a spur to the station and one crossing under the railway bridge and over a bascule bridge) and
/// its canal. Adds their switching contacts and the tram signal.
class LocalTrafficBuilder {
public:
    LocalTrafficBuilder(Layout& layout, Rng& rng, TileAnchors& anchors);

    void build();

private:
    void layTramway();
    void layRoad();
    void layCanal();
    Vec3 at(double x, double y, double z = 0) const;

    Layout& layout_;
    Rng& rng_;
    TileAnchors& anchors_;
    ContactPlacer contacts_;
};

} // namespace kavrin::gen
