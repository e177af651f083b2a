#pragma once

#include "ContactPlacer.h"
#include "Layout.h"
#include "Rng.h"
#include "TileAnchors.h"

#include <span>
#include <string_view>

namespace kavrin::gen {

/// Places a tile's objects: the track-accompanying objects with their collectors, the station and
/// other buildings (some with moving parts), rows of houses along the tracks, trees, goods, and the
/// contacts that switch buildings. Works to a quota of objects so that counts can be exact.
class SceneryBuilder {
public:
    SceneryBuilder(Layout& layout, Rng& rng, const TileAnchors& anchors);

    /// Places exactly quota objects, or the tile's natural set when quota < 0.
    void build(long long quota);

private:
    void addTrackObjects();
    void addTrackObject(int collection, std::string_view model, int system, std::span<const int> tracks,
                        int movingTrack = 0);
    int addKollektor(int system, std::span<const int> tracks);
    void addLandmarks();
    void addHouseRow(double y, double facing, double gapAtX);
    void addTownBlock();
    void addTrees(double minX, double maxX, double minY, double maxY, int count);
    void addRandomFill();
    void addGoods();
    Building* addBuilding(int collection, std::string_view model, double x, double y, double facing);
    bool full() const { return quota_ >= 0 && placed_ >= quota_; }
    Vec3 at(double x, double y, double z = 0) const;

    Layout& layout_;
    Rng& rng_;
    const TileAnchors& anchors_;
    ContactPlacer contacts_;
    double half_;
    long long quota_ = -1;
    long long placed_ = 0;
};

} // namespace kavrin::gen
