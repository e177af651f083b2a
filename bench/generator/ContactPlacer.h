#pragma once

#include "Layout.h"
#include "Rng.h"
#include "TileAnchors.h"

#include <string_view>

namespace kavrin::gen {

/// Puts contacts ("Kontakt") and signals ("Meldung") on tracks, keeping their references valid:
/// nothing is placed on a track that was not laid, and a switch or signal contact is only placed
/// when its target exists.
class ContactPlacer {
public:
    ContactPlacer(Layout& layout, Rng& rng) : layout_(layout), rng_(rng) {}

    /// A signal the given distance before the end of the track.
    SignalRef signalBeforeEnd(int system, int track, std::string_view model, double distance);
    /// A contact that sets a switch (kind 0, the switch's contact target).
    void switchContact(int system, int track, int switchTrack, int setting);
    /// A contact that sets a signal (kind 0, the signal's contact target).
    void signalContact(int system, int track, SignalRef signal, int setting);
    /// Any other kind of contact at a random place on the track.
    void contact(int system, int track, int setType, int setValue, std::string_view luaFunction = {},
                 std::string_view tip = {});
    void setWaitingTrain(SignalRef signal, int trainId);

private:
    TrackPiece* find(int system, int track);
    double randomPosition(const TrackPiece& piece);

    Layout& layout_;
    Rng& rng_;
};

} // namespace kavrin::gen
