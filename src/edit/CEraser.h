#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace kavrin {

class CAnlage;
class CArrayOfLong;
class CSet;
class IProc;
class CEditStep;
class CNodeBase;
class CNodeGleis;
class CNodeGleisSys;
class CNodeKontakt;
class CNodeMeldung;
class INode;

// Deletes selected tracks, buildings and goods, chosen signals and contacts, together with
// everything that refers to them: connection records, collector entries, the trains standing
// on deleted tracks and their waiting-train records and timetable entries, signals and their
// contacts, contacts switching deleted buildings, and the signal data naming deleted key ids.
// Every change goes into the step it is given, so that the whole deletion is undone at once.
// A member that fails rethrows after noting which one it was (Failure); the caller rolls the
// step back and reports.
class CEraser {
public:
    // What a deletion removed, by kind.
    struct Tally {
        int32_t gleise = 0, immos = 0, goods = 0, kontakte = 0, signale = 0, zugverbaende = 0;
        int32_t wartende = 0, fahrplan = 0, verbindungen = 0, kollektorGleise = 0, kollektoren = 0;
        int32_t signalDaten = 0, skipped = 0;
    };
    // The member that failed and the two words of its error text.
    struct Failure {
        std::string member;
        std::string doing;
        std::string what;
    };

    CEraser(CAnlage& anlage, CEditStep& step);
    CEraser(const CEraser&) = delete;
    CEraser& operator=(const CEraser&) = delete;

    // Removes the selected tracks with their dependants; adds the key ids of the removed tracks
    // and signal messages (0 and more) to `removedKeyIds`.
    void DeleteSelectedTracks(CArrayOfLong& removedKeyIds);
    void DeleteSelectedImmos();
    void DeleteSelectedGoods();
    // Removes every signal whose model name is in `names` ("" for a signal without a name).
    void DeleteSelectedSignals(const std::vector<std::string>& names, CArrayOfLong& removedKeyIds);
    // Removes the contacts of these kinds on the selected tracks.
    void EraseKontaktGruppen(const std::vector<int32_t>& kinds);
    // Removes, on all tracks, the signal and switch contacts that switch one of these targets.
    void EraseKontakteSig(const std::vector<int32_t>& targets);
    // Removes the contacts whose target vanished with the deletion; each is reported.
    void CleanUpKontaktZiele();
    // Takes out the kept children of `parent` at these places, as one recorded change.
    void EraseNodes(CNodeBase& parent, std::vector<int32_t> keys);
    // The follow-up for removed key ids: the signal data of tracks and contacts that names one
    // of them (greater than 0, and carried by no track or signal any more) is cleared.
    void EraseKeyIdReferences(const CArrayOfLong& removedKeyIds);

    const Tally& Counts() const { return tally_; }
    // "Signal / Weichen-Kontakt am Gleis ... entfernt, ..." for each contact of the clean-up.
    const std::vector<std::string>& Reports() const { return reports_; }
    const std::optional<Failure>& Failed() const { return failed_; }

    // The trains ("Zugverband") standing on a track for which `doomed` holds (system id, track id).
    static std::vector<INode*> TrainsOn(const CAnlage& anlage,
                                        const std::function<bool(int16_t, int32_t)>& doomed);

private:
    template <typename Work> void Guarded(const char* member, const char* doing, const char* what, Work work);
    // Releases what refers to the tracks about to be removed from a system: connection records,
    // collector entries and the trains standing on them.
    void MarkForErase(CNodeGleisSys& system, const std::unordered_set<int32_t>& goneIds);
    void NoteTrack(const CNodeGleis& track, CArrayOfLong& removedKeyIds);
    void NoteSignal(const CNodeMeldung& meldung, CArrayOfLong& removedKeyIds);
    void RemoveTrains(const std::vector<INode*>& trains);
    void RemoveWaitingRecords(const std::unordered_set<std::string>& trainKeys);
    void RemoveTimetableEntries();
    void RemoveBuildingContacts(const std::vector<int32_t>& immoIdx);
    void RemoveOrphanCollectors(const std::vector<int32_t>& kollektorIds);
    // Tracks that name one of these collectors forget it.
    void ClearKollektorLinks(const std::unordered_set<int32_t>& kollektorIds);
    // Removes the contacts CProcKontaktErase takes in that mode, on every track.
    void EraseContacts(int32_t mode, const std::vector<int32_t>& values);
    // Walks every track, or every contact, of the layout with `leaf`.
    void WalkTracks(IProc& leaf);
    void WalkContacts(IProc& leaf);
    // The contact targets (1 and more) that tracks and signal messages carry now.
    CSet ExistingTargets() const;
    // Targets of the list that no track or signal message carries any more.
    std::vector<int32_t> VanishedTargets(const std::vector<int32_t>& targets) const;

    CAnlage& anlage_;
    CEditStep& step_;
    Tally tally_;
    std::vector<std::string> reports_;
    std::optional<Failure> failed_;
    // Targets of contacts that went with deleted tracks, checked again by CleanUpKontaktZiele.
    std::vector<int32_t> recheck_;
    // Filled while signals are deleted: their contact targets, and the key ids the timetable
    // may name, and the keys of the trains removed.
    std::vector<int32_t> kontaktListe_;
    std::unordered_set<int32_t> fahrplanListe_;
    std::unordered_set<std::string> removedTrains_;
};

} // namespace kavrin
