#include "LocalTrafficBuilder.h"

#include "ModelCatalog.h"
#include "TrackTurtle.h"

namespace kavrin::gen {
namespace {
// Curve radii are multiples of 125 cm (see TrackTurtle::quarterTurn).
constexpr double kTramRadius = 3750;
constexpr double kTramSwitchLength = 1000;
constexpr double kRoadRadius = 2500;
constexpr double kRoadSwitchLength = 1000;
constexpr double kMaxPiece = 5000;
constexpr double kCanalLevel = -120;
constexpr double kCanalHalfLength = 30000;
constexpr double kCanalY = 25000;
} // namespace

LocalTrafficBuilder::LocalTrafficBuilder(Layout& layout, Rng& rng, TileAnchors& anchors)
    : layout_(layout), rng_(rng), anchors_(anchors), contacts_(layout, rng) {}

void LocalTrafficBuilder::build() {
    layTramway();
    layRoad();
    layCanal();
}

void LocalTrafficBuilder::layTramway() {
    TrackTurtle tram(layout_, kTramway, catalog::kTramTrack, at(-20000, -3750), 1, 0);
    const int first = tram.straight(2000);
    const int stopSwitch = tram.turnout(TrackKind::Switch, kTramSwitchLength, 1);
    TrackTurtle passing = tram.branch(kBranch);
    anchors_.tramStopTracks.push_back(tram.straights(8000, 4000));
    const int merge = tram.mergingTurnout(TrackKind::Switch, kTramSwitchLength, 1);

    // turns::kSmall at 37.5 m: shifted by 3 m over 21 m.
    passing.sCurve(kTramRadius, turns::kSmall, kRight);
    const int stop = passing.straight(3800);
    anchors_.tramStopTracks.push_back(stop);
    passing.sCurve(kTramRadius, turns::kSmall, kLeft);
    passing.joinEnd(merge, kBranch);

    tram.quarterTurn(kTramRadius, kLeft);
    tram.quarterTurn(kTramRadius, kLeft);
    anchors_.tramTrack = tram.straights(12000, 4000);
    tram.quarterTurn(kTramRadius, kLeft);
    tram.quarterTurn(kTramRadius, kLeft);
    tram.joinEnd(first, kStart);

    contacts_.switchContact(kTramway, first, stopSwitch, 1 + rng_.below(2));
    contacts_.signalBeforeEnd(kTramway, stop, catalog::kTramSignal, 150);
    contacts_.contact(kTramway, anchors_.tramTrack, 1 + rng_.below(39), 0, "KV_Strab_Ansage()");
}

void LocalTrafficBuilder::layRoad() {
    TrackTurtle road(layout_, kRoad, catalog::kRoadTrack, at(4500, -12000), 1, 0);
    const int first = road.straights(8500, kMaxPiece);
    const int junction = road.turnout(TrackKind::ThreeWaySwitch, kRoadSwitchLength, 1 + rng_.below(3));
    TrackTurtle parking = road.branch(kBranch);
    TrackTurtle toStation = road.branch(kSecondBranch);
    road.straights(9500, kMaxPiece);
    road.quarterTurn(kRoadRadius, kLeft);
    anchors_.roadTrack = road.straights(19000, kMaxPiece);
    road.quarterTurn(kRoadRadius, kLeft);
    road.straights(17500, kMaxPiece);
    road.turnout(TrackKind::Switch, kRoadSwitchLength, 1);
    TrackTurtle north = road.branch(kBranch);
    road.straight(500);
    road.quarterTurn(kRoadRadius, kLeft);
    road.straights(19000, kMaxPiece);
    road.quarterTurn(kRoadRadius, kLeft);
    road.setVirtualLinks(true);
    road.joinEnd(first, kStart);

    parking.quarterTurn(kRoadRadius, kLeft);
    parking.straight(3000);

    toStation.quarterTurn(kRoadRadius, kRight);
    toStation.straight(2000);
    anchors_.busStopTrack = toStation.straight(1000);

    // Under the railway bridge, then over the canal.
    north.quarterTurn(kRoadRadius, kRight);
    north.straights(8500, kMaxPiece);
    anchors_.bridgeApproachTracks.push_back(north.straight(1000));
    north.setStyle(catalog::kRoadBridgeTrack);
    anchors_.bridgeDeckTrack = north.straight(2000);
    north.setStyle(catalog::kRoadTrack);
    anchors_.bridgeApproachTracks.push_back(north.straight(1000));
    north.straight(2000);

    contacts_.switchContact(kRoad, first, junction, 3);
}

void LocalTrafficBuilder::layCanal() {
    TrackTurtle canal(layout_, kWaterway, catalog::kCanal, at(-kCanalHalfLength, kCanalY, kCanalLevel), 1, 0);
    canal.straights(kCanalHalfLength - 10000, kMaxPiece);
    anchors_.jettyTrack = canal.straight(kMaxPiece);
    canal.straights(kCanalHalfLength + 5000, kMaxPiece);
}

Vec3 LocalTrafficBuilder::at(double x, double y, double z) const {
    return anchors_.origin + Vec3{x, y, z};
}

} // namespace kavrin::gen
