#pragma once

#include "Vec3.h"

#include <string_view>
#include <vector>

namespace kavrin::gen {

enum class TrackKind { Plain, Switch, ThreeWaySwitch, BufferStop };

/// End numbers as the file encodes them (Anfang, Ende, EndeAbzweig, EndeKoAbzweig).
enum TrackEnd { kStart = 1, kEnd = 2, kBranch = 3, kSecondBranch = 4 };

struct TrackStyle {
    std::string_view gsbname;
    int stil = 0;
};

/// A contact ("Kontakt") on a track. Only switch/signal contacts (setType 0) carry a target.
struct Contact {
    double position = 0; // cm from the track start
    int setType = 0;
    int setValue = 0;
    int target = 0;
    std::string_view luaFunction;
    std::string_view tip;
};

/// A signal ("Meldung") at a track.
struct Signal {
    double position = 0;
    int keyId = 0;
    int target = 0;
    std::string_view model;
    int setting = 1;
    double effectRange = 0;
    int waitingTrain = 0; // id of the train that waits here, 0 for none
};

struct TrackPiece {
    int id = 0;
    TrackKind kind = TrackKind::Plain;
    const TrackStyle* style = nullptr;
    Frame frame; // axes without cant
    double curvature = 0;
    double length = 0;
    double cant = 0; // initial guide twist in rad
    Vec3 end;        // where ends 2, 3 and 4 lie
    int keyId = 0;   // switches only
    int target = 0;  // switches only: their contact target number
    int setting = 0; // switches only
    std::vector<Contact> contacts;
    std::vector<Signal> signals;

    bool isSwitch() const { return kind == TrackKind::Switch || kind == TrackKind::ThreeWaySwitch; }
    Vec3 endPoint(int endNo) const { return endNo == kStart ? frame.pos : end; }
};

struct TrackConnection {
    int id1 = 0;
    int end1 = 0;
    int id2 = 0;
    int end2 = 0;
    bool virtualLink = false;
};

/// One "Gleissystem": its tracks (ids 1..n in order) and the connections between their ends.
class TrackSystem {
public:
    TrackSystem(int id, std::string_view type) : id_(id), type_(type) {}

    int id() const { return id_; }
    std::string_view type() const { return type_; }
    Frame& frame() { return frame_; }
    const Frame& frame() const { return frame_; }

    TrackPiece& addPiece();
    TrackPiece& piece(int id) { return pieces_[static_cast<std::size_t>(id - 1)]; }
    const TrackPiece& piece(int id) const { return pieces_[static_cast<std::size_t>(id - 1)]; }
    bool contains(int id) const { return id >= 1 && id <= static_cast<int>(pieces_.size()); }
    const std::vector<TrackPiece>& pieces() const { return pieces_; }

    void connect(int id1, int end1, int id2, int end2, bool virtualLink);
    /// Connections in the order the editor regenerates them: by the smaller track id, then its end.
    std::vector<TrackConnection> sortedConnections() const;

private:
    int id_;
    std::string_view type_;
    Frame frame_;
    std::vector<TrackPiece> pieces_;
    std::vector<TrackConnection> connections_;
};

} // namespace kavrin::gen
