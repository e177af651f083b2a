#pragma once

#include "Vec3.h"

#include <vector>

namespace kavrin::gen {

/// Where a signal sits: track (system id, track id) and its index among the track's signals.
struct SignalRef {
    int system = 0;
    int track = 0;
    int index = -1;
};

/// The tracks of one tile that scenery, trains and contacts are placed against. A track id of 0
/// means the track was not laid (the track budget ran out).
struct TileAnchors {
    Vec3 origin;
    double halfStraight = 0; // half the length of the main line's straights

    // Railway.
    std::vector<int> bridgeTracks;
    std::vector<int> outerPlatformTracks;
    std::vector<int> innerPlatformTracks;
    int freightTrack = 0;
    int farSideTrack = 0;
    int stationTrack = 0; // a main track through the station, for building contacts
    SignalRef waitingSignal;
    int waitingTrack = 0;

    // Tramway, road, waterway.
    std::vector<int> tramStopTracks;
    int tramTrack = 0;
    int busStopTrack = 0;
    int roadTrack = 0;
    std::vector<int> bridgeApproachTracks;
    int bridgeDeckTrack = 0;
    int jettyTrack = 0;
};

} // namespace kavrin::gen
