#include "ContactPlacer.h"

#include <cmath>

namespace kavrin::gen {
namespace {
// Contact kind 0 switches a signal or a switch.
constexpr int kSwitchingContact = 0;
} // namespace

SignalRef ContactPlacer::signalBeforeEnd(int system, int track, std::string_view model, double distance) {
    TrackPiece* piece = find(system, track);
    if (piece == nullptr) {
        return {};
    }
    Signal signal;
    signal.position = std::round(std::max(0.0, piece->length - distance));
    signal.keyId = layout_.nextKeyId();
    signal.target = layout_.nextTarget();
    signal.model = model;
    signal.setting = 1 + rng_.below(2);
    signal.effectRange = std::round(rng_.uniform(800, 2500));
    piece->signals.push_back(signal);
    layout_.noteModel(model);
    return {system, track, static_cast<int>(piece->signals.size()) - 1};
}

void ContactPlacer::switchContact(int system, int track, int switchTrack, int setting) {
    TrackPiece* piece = find(system, track);
    TrackPiece* target = find(system, switchTrack);
    if (piece == nullptr || target == nullptr) {
        return;
    }
    Contact contact;
    contact.position = std::round(piece->length * 0.5);
    contact.setType = kSwitchingContact;
    contact.setValue = setting;
    contact.target = target->target;
    piece->contacts.push_back(contact);
}

void ContactPlacer::signalContact(int system, int track, SignalRef signal, int setting) {
    TrackPiece* piece = find(system, track);
    TrackPiece* holder = find(signal.system, signal.track);
    if (piece == nullptr || holder == nullptr || signal.index < 0) {
        return;
    }
    Contact contact;
    contact.position = std::round(piece->length * 0.25);
    contact.setType = kSwitchingContact;
    contact.setValue = setting;
    contact.target = holder->signals[static_cast<std::size_t>(signal.index)].target;
    piece->contacts.push_back(contact);
}

void ContactPlacer::contact(int system, int track, int setType, int setValue, std::string_view luaFunction,
                            std::string_view tip) {
    TrackPiece* piece = find(system, track);
    if (piece == nullptr) {
        return;
    }
    Contact contact;
    contact.position = randomPosition(*piece);
    contact.setType = setType;
    contact.setValue = setValue;
    contact.luaFunction = luaFunction;
    contact.tip = tip;
    piece->contacts.push_back(contact);
}

void ContactPlacer::setWaitingTrain(SignalRef signal, int trainId) {
    TrackPiece* holder = find(signal.system, signal.track);
    if (holder != nullptr && signal.index >= 0) {
        holder->signals[static_cast<std::size_t>(signal.index)].waitingTrain = trainId;
    }
}

TrackPiece* ContactPlacer::find(int system, int track) {
    if (track == 0 || system < 1 || system > kTrackSystemCount) {
        return nullptr;
    }
    TrackSystem& tracks = layout_.system(system);
    return tracks.contains(track) ? &tracks.piece(track) : nullptr;
}

double ContactPlacer::randomPosition(const TrackPiece& piece) {
    // Whole centimetres, well inside the track.
    return std::round(rng_.uniform(0.1, 0.9) * piece.length);
}

} // namespace kavrin::gen
