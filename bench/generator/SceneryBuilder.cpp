#include "SceneryBuilder.h"

#include "ModelCatalog.h"

#include <cmath>
#include <vector>

namespace kavrin::gen {
namespace {
constexpr double kHouseSpacing = 2500;
constexpr double kRoadX = 2500; // the road that runs north under the railway bridge
constexpr double kNoGap = 1e9;  // a house row that no road crosses
constexpr int kTreesPerGroup = 20;
constexpr double kBlockSpacing = 3000;
constexpr double kParkingX = 16500; // the spur into the road ring
// The tile's objects stay inside this box (relative to its centre); see LayoutGenerator's tile pitch.
constexpr double kBoxMargin = 20000;
constexpr double kBoxMinY = -27000;
constexpr double kBoxMaxY = 31000;
// Contact kinds that switch a building; their set value is the building's ImmoIdx.
constexpr int kBuildingContact = 768;
constexpr int kCrossingContact = 1024;

std::string_view pick(Rng& rng, std::span<const std::string_view> models) {
    return models[static_cast<std::size_t>(rng.below(static_cast<int>(models.size())))];
}
} // namespace

SceneryBuilder::SceneryBuilder(Layout& layout, Rng& rng, const TileAnchors& anchors)
    : layout_(layout), rng_(rng), anchors_(anchors), contacts_(layout, rng), half_(anchors.halfStraight) {}

void SceneryBuilder::build(long long quota) {
    quota_ = quota;
    placed_ = 0;
    addTrackObjects();
    addLandmarks();
    addHouseRow(-25000, 1, kNoGap);
    addHouseRow(22500, -1, kNoGap);
    addHouseRow(28500, -1, kRoadX);
    addTownBlock();
    addTrees(-3500, 1000, -14000, 14000, kTreesPerGroup);
    addTrees(-19000, -9000, -2500, 2500, kTreesPerGroup / 2);
    addTrees(-half_, half_, 23400, 23800, kTreesPerGroup);
    if (quota_ > placed_) {
        addRandomFill();
    }
    addGoods();
}

void SceneryBuilder::addTrackObjects() {
    addTrackObject(kRailObjects, catalog::kRailBridge, kRailway, anchors_.bridgeTracks);
    addTrackObject(kRailObjects, catalog::kPlatform, kRailway, anchors_.outerPlatformTracks);
    addTrackObject(kRailObjects, catalog::kPlatform, kRailway, anchors_.innerPlatformTracks);
    addTrackObject(kTramObjects, catalog::kTramStop, kTramway, anchors_.tramStopTracks);
    const int busStop[] = {anchors_.busStopTrack};
    addTrackObject(kRoadObjects, catalog::kBusStop, kRoad, busStop);
    addTrackObject(kRoadObjects, catalog::kBasculeBridge, kRoad, anchors_.bridgeApproachTracks,
                   anchors_.bridgeDeckTrack);
    const int jetty[] = {anchors_.jettyTrack};
    addTrackObject(kWaterObjects, catalog::kJetty, kWaterway, jetty);
}

// The object sits where its first own track starts, as the simulator places it.
void SceneryBuilder::addTrackObject(int collection, std::string_view model, int system,
                                    std::span<const int> tracks, int movingTrack) {
    std::vector<int> laid;
    for (int id : tracks) {
        if (id != 0) {
            laid.push_back(id);
        }
    }
    if (laid.empty() || full()) {
        return;
    }
    const Frame& first = layout_.system(system).piece(laid.front()).frame;
    Building& object =
        layout_.addBuilding(collection, model, uprightFrame(first.pos, first.dir.x, first.dir.y));
    ++placed_;
    object.kollektorId = addKollektor(system, laid);
    if (movingTrack != 0) {
        const int moving[] = {movingTrack};
        object.parts.push_back({addKollektor(system, moving), 0});
    }
}

int SceneryBuilder::addKollektor(int system, std::span<const int> tracks) {
    const Frame& first = layout_.system(system).piece(tracks.front()).frame;
    Kollektor& kollektor = layout_.addKollektor(uprightFrame(first.pos, first.dir.x, first.dir.y));
    for (int id : tracks) {
        kollektor.tracks.push_back({system, id});
    }
    return kollektor.id;
}

void SceneryBuilder::addLandmarks() {
    if (Building* station = addBuilding(kBuildings, catalog::kStationBuilding, -3000, -22300, 1)) {
        station->light = true;
        station->tip = "<b>Bahnhof Kavrinstadt</b>\nGleis 1 & 2";
        station->parts.push_back({0, 0});
        contacts_.contact(kRailway, anchors_.stationTrack, kCrossingContact, station->immoIdx);
    }
    if (Building* shed = addBuilding(kBuildings, catalog::kGoodsShed, 6000, -22600, 1)) {
        shed->parts.push_back({0, 0});
        contacts_.contact(kRailway, anchors_.freightTrack, kBuildingContact, shed->immoIdx, "KV_Rolltor()");
    }
    if (Building* mill = addBuilding(kBuildings, catalog::kWindmill, -20000, 30500, -1)) {
        mill->parts.push_back({0, 0});
        mill->parts.push_back({0, 1});
    }
}

void SceneryBuilder::addHouseRow(double y, double facing, double gapAtX) {
    for (double x = -half_ + 1000; x <= half_ - 1000; x += kHouseSpacing) {
        if (x > gapAtX - 2000 && x < gapAtX + 2000) {
            continue;
        }
        if (addBuilding(kBuildings, pick(rng_, catalog::houses()), x, y + rng_.uniform(-300, 300), facing) ==
            nullptr) {
            return;
        }
    }
}

// Houses inside the road ring, leaving out the car park spur that enters it from the south.
void SceneryBuilder::addTownBlock() {
    for (double y = -8000; y <= 9000; y += kBlockSpacing) {
        for (double x = 5000; x <= 23000; x += kBlockSpacing) {
            if (std::abs(x - kParkingX) < 2000 && y < -5000) {
                continue;
            }
            if (addBuilding(kBuildings, pick(rng_, catalog::houses()), x, y, rng_.chance(0.5) ? 1 : -1) ==
                nullptr) {
                return;
            }
        }
    }
}

void SceneryBuilder::addTrees(double minX, double maxX, double minY, double maxY, int count) {
    for (int i = 0; i < count; ++i) {
        Building* tree = addBuilding(kLandscape, pick(rng_, catalog::trees()), rng_.uniform(minX, maxX),
                                     rng_.uniform(minY, maxY), 1);
        if (tree == nullptr) {
            return;
        }
        tree->tree = true;
    }
}

void SceneryBuilder::addRandomFill() {
    const double reach = half_ + kBoxMargin;
    while (!full()) {
        const double x = rng_.uniform(-reach, reach);
        const double y = rng_.uniform(kBoxMinY, kBoxMaxY);
        if (rng_.chance(0.5)) {
            addBuilding(kBuildings, pick(rng_, catalog::houses()), x, y, rng_.chance(0.5) ? 1 : -1);
        } else {
            addBuilding(kLandscape, pick(rng_, catalog::trees()), x, y, 1)->tree = true;
        }
    }
}

void SceneryBuilder::addGoods() {
    for (int i = 0; i < 2; ++i) {
        layout_.addGood(pick(rng_, catalog::goods()), uprightFrame(at(4000 + 1500 * i, -21700, 10), 1, 0));
    }
}

Building* SceneryBuilder::addBuilding(int collection, std::string_view model, double x, double y,
                                      double facing) {
    if (full()) {
        return nullptr;
    }
    ++placed_;
    return &layout_.addBuilding(collection, model, uprightFrame(at(x, y), facing, 0));
}

Vec3 SceneryBuilder::at(double x, double y, double z) const {
    return anchors_.origin + Vec3{x, y, z};
}

} // namespace kavrin::gen
