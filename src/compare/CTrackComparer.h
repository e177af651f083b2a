#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "compare/CDiffCollector.h"

namespace kavrin {

class CAnlage;
class CNodeGleis;
class CNodeGleisSys;
class CNodeKontakt;
class CNodeMeldung;

// The track network of two layouts side by side: tracks by track system and id (a switch whose
// track is gone is looked for by its key id), the connection records between matched tracks,
// signals by key id (or, when the key id changed, by track and position) and contacts by track
// and position.
class CTrackComparer {
public:
    CTrackComparer(const CAnlage& alt, const CAnlage& neu, CDiffCollector& out);
    void Run();

    // The object a track, signal or contact stands for in the report.
    static CDiffCollector::Object TrackObject(const CNodeGleis& track);
    static CDiffCollector::Object SignalObject(const CNodeMeldung& signal, const CNodeGleis& track);
    static CDiffCollector::Object ContactObject(const CNodeKontakt& contact, const CNodeGleis& track);
    // The places the plan shows for entries of tracks (their start) and of signals and contacts
    // (their point on the track), worked out for the entries only.
    static void PlaceOnTracks(std::vector<CDiffEntry>& entries);

    // A signal or contact with the track it stands on.
    struct Mark {
        const INode* node;
        const CNodeGleis* track;
    };

private:
    void MatchTracks(const CNodeGleisSys* a, const CNodeGleisSys* b);
    void MatchSwitchesByKey(std::vector<const CNodeGleis*>& removed, std::vector<const CNodeGleis*>& added);
    void CompareConnections(const CNodeGleisSys& a, const CNodeGleisSys& b);
    void CompareTrack(const CNodeGleis& a, const CNodeGleis& b);
    void CompareSignals();
    void CompareContacts();
    const CNodeGleis* Partner(const CNodeGleis* oldTrack) const;

    const CAnlage& alt_;
    const CAnlage& neu_;
    CDiffCollector& out_;
    std::unordered_map<const CNodeGleis*, const CNodeGleis*> partners_;
    std::vector<std::pair<const CNodeGleis*, const CNodeGleis*>> pairs_;
    // Connection differences of the matched tracks, by the new track.
    std::unordered_map<const CNodeGleis*, std::vector<CDiffValue>> connectionValues_;
};

} // namespace kavrin
