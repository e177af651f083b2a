#include "RailLineBuilder.h"

#include "ModelCatalog.h"

namespace kavrin::gen {
namespace {
// Radii are multiples of 125 cm so that quarter turns end on whole centimetres.
constexpr double kOuterRadius = 20000;
constexpr double kTrackSpacing = 500;
constexpr double kInnerRadius = kOuterRadius - kTrackSpacing;
// With turns::kTurnout this radius shifts an S-curve by exactly one track spacing over 90 m.
constexpr double kTurnoutRadius = 40625;
constexpr double kSwitchLength = 2000;
constexpr double kMaxStraight = 5000;
constexpr double kPlatformPiece = 4000;
constexpr double kCurveCant = 0.03;
constexpr double kBridgeHeight = 600;
constexpr double kRampRun = 15000;
constexpr double kBridgePiece = 4000;
// x of the station's fixed points, relative to the tile centre.
constexpr double kOuterApproachEnd = -26000;
constexpr double kInnerApproachEnd = -15000;
constexpr double kStationEnd = 20000;
constexpr double kRampStart = 19000;
} // namespace

RailLineBuilder::RailLineBuilder(Layout& layout, Rng& rng, TileAnchors& anchors)
    : layout_(layout), rng_(rng), anchors_(anchors), contacts_(layout, rng), half_(anchors.halfStraight) {}

void RailLineBuilder::build() {
    TrackTurtle crossover = layOuterLine();
    layInnerLine(crossover);
    addOtherContacts();
}

TrackTurtle RailLineBuilder::layOuterLine() {
    TrackTurtle line(layout_, kRailway, catalog::kRailTrack, at(-half_, -kOuterRadius), 1, 0);
    const int first = line.straights(half_ + kOuterApproachEnd, kMaxStraight);
    const int approach = line.lastTrack();
    const int crossoverSwitch = line.turnout(TrackKind::Switch, kSwitchLength, 1);
    TrackTurtle crossover = line.branch(kBranch);
    crossover.sCurve(kTurnoutRadius, turns::kTurnout, kLeft);
    const int afterCrossover = line.straight(4000);
    const int intoSiding = line.turnout(TrackKind::Switch, kSwitchLength, 1);
    TrackTurtle siding = line.branch(kBranch);
    anchors_.stationTrack = line.straights(36000, kMaxStraight);
    outerMainExit_ = line.lastTrack();
    const int merge = line.mergingTurnout(TrackKind::Switch, kSwitchLength, 1);
    layOuterSiding(siding, merge);
    line.straights(half_ - kStationEnd, kMaxStraight);
    layLoopRest(line, kOuterRadius, first);

    contacts_.switchContact(kRailway, approach, crossoverSwitch, 1);
    addOuterSignals(approach, afterCrossover, intoSiding);
    return crossover;
}

void RailLineBuilder::layOuterSiding(TrackTurtle siding, int mergeAt) {
    siding.sCurve(kTurnoutRadius, turns::kTurnout, kRight);
    siding.turnout(TrackKind::Switch, kSwitchLength, 1);
    layFreightSiding(siding.branch(kBranch));
    for (int i = 0; i < 4; ++i) {
        anchors_.outerPlatformTracks.push_back(siding.straight(kPlatformPiece));
    }
    outerSidingExit_ = siding.lastTrack();
    siding.sCurve(kTurnoutRadius, turns::kTurnout, kLeft);
    siding.joinEnd(mergeAt, kBranch);
}

void RailLineBuilder::layFreightSiding(TrackTurtle freight) {
    freight.sCurve(kTurnoutRadius, turns::kTurnout, kRight);
    freight.straights(7000, 3500);
    anchors_.freightTrack = freight.lastTrack();
    freight.setStyle(catalog::kBufferStop);
    freight.bufferStop(1000);
}

void RailLineBuilder::layInnerLine(TrackTurtle& crossover) {
    TrackTurtle line(layout_, kRailway, catalog::kRailTrack, at(-half_, -kInnerRadius), 1, 0);
    const int first = line.straights(half_ + kInnerApproachEnd, kMaxStraight);
    const int approach = line.lastTrack();
    const int crossoverMerge = line.mergingTurnout(TrackKind::Switch, kSwitchLength, 1);
    crossover.joinEnd(crossoverMerge, kBranch);
    line.straight(1000);
    const int intoSiding = line.turnout(TrackKind::Switch, kSwitchLength, 1);
    TrackTurtle siding = line.branch(kBranch);
    line.straights(28000, kMaxStraight);
    innerMainExit_ = line.lastTrack();
    const int exitMerge = line.mergingTurnout(TrackKind::Switch, kSwitchLength, 1);

    siding.sCurve(kTurnoutRadius, turns::kTurnout, kLeft);
    for (int i = 0; i < 2; ++i) {
        anchors_.innerPlatformTracks.push_back(siding.straight(5000));
    }
    anchors_.waitingTrack = siding.lastTrack();
    siding.sCurve(kTurnoutRadius, turns::kTurnout, kRight);
    siding.joinEnd(exitMerge, kBranch);

    line.straights(half_ - kStationEnd, kMaxStraight);
    layLoopRest(line, kInnerRadius, first);
    addInnerSignals(approach, intoSiding);
}

void RailLineBuilder::layLoopRest(TrackTurtle& line, double radius, int firstTrack) {
    line.setCant(kCurveCant);
    line.quarterTurn(radius, kLeft);
    line.quarterTurn(radius, kLeft);
    line.setCant(0);
    layNorthStraight(line);
    line.setCant(kCurveCant);
    line.quarterTurn(radius, kLeft);
    line.quarterTurn(radius, kLeft);
    line.setCant(0);
    line.joinEnd(firstTrack, kStart);
}

void RailLineBuilder::layNorthStraight(TrackTurtle& line) {
    const int far = line.straights(half_ - kRampStart, kMaxStraight);
    if (anchors_.farSideTrack == 0) {
        anchors_.farSideTrack = far;
    }
    line.straights(kRampRun, kMaxStraight, kBridgeHeight);
    line.setStyle(catalog::kRailBridgeTrack);
    anchors_.bridgeTracks.push_back(line.straight(kBridgePiece));
    anchors_.bridgeTracks.push_back(line.straight(kBridgePiece));
    line.setStyle(catalog::kRailTrack);
    line.straights(kRampRun, kMaxStraight, -kBridgeHeight);
    line.straights(half_ - kRampStart, kMaxStraight);
}

void RailLineBuilder::addOuterSignals(int approach, int afterCrossover, int switchIntoSiding) {
    const SignalRef entry = contacts_.signalBeforeEnd(kRailway, approach, catalog::kMainSignal, 300);
    contacts_.signalContact(kRailway, afterCrossover, entry, 1);
    contacts_.switchContact(kRailway, afterCrossover, switchIntoSiding, 1 + rng_.below(2));
    contacts_.signalBeforeEnd(kRailway, outerSidingExit_, catalog::kExitSignal, 200);
    contacts_.signalBeforeEnd(kRailway, outerMainExit_, catalog::kExitSignal, 200);
}

void RailLineBuilder::addInnerSignals(int approach, int switchIntoSiding) {
    contacts_.signalBeforeEnd(kRailway, approach, catalog::kMainSignal, 300);
    contacts_.switchContact(kRailway, approach, switchIntoSiding, 2);
    anchors_.waitingSignal =
        contacts_.signalBeforeEnd(kRailway, anchors_.waitingTrack, catalog::kExitSignal, 200);
    contacts_.signalBeforeEnd(kRailway, innerMainExit_, catalog::kExitSignal, 200);
}

void RailLineBuilder::addOtherContacts() {
    // Contact kinds: 1..39 vehicle, 256 sound, 512 camera, 1280/1536 depot, 2048 animation, 32768 group.
    if (!anchors_.outerPlatformTracks.empty()) {
        contacts_.contact(kRailway, anchors_.outerPlatformTracks[1], 1 + rng_.below(39), 0,
                          "KV_Halt(Zugname)", "<b>Halt</b> am Hausbahnsteig");
    }
    contacts_.contact(kRailway, anchors_.stationTrack, 256, 3, "", "Ansage \"Gleis 2\"");
    if (!anchors_.bridgeTracks.empty()) {
        contacts_.contact(kRailway, anchors_.bridgeTracks[0], 512, 2);
    }
    contacts_.contact(kRailway, anchors_.freightTrack, 1280, 1);
    contacts_.contact(kRailway, anchors_.freightTrack, 2048, 0, "KV_Kran_heben()");
    contacts_.contact(kRailway, anchors_.farSideTrack, 32768, 4);
    if (!anchors_.innerPlatformTracks.empty()) {
        contacts_.contact(kRailway, anchors_.innerPlatformTracks[0], 1536, 1);
    }
}

Vec3 RailLineBuilder::at(double x, double y) const {
    return anchors_.origin + Vec3{x, y, 0};
}

} // namespace kavrin::gen
