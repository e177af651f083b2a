#include "edit/CEraser.h"

#include <algorithm>
#include <cctype>

#include "core/CArrayOfLong.h"
#include "core/CSet.h"
#include "core/CStringPack.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "document/NodeAttributes.h"
#include "document/NodeTree.h"
#include "edit/CAttributeChange.h"
#include "edit/CChildrenChange.h"
#include "edit/CConnectionChange.h"
#include "edit/CEditStep.h"
#include "edit/CForAll.h"
#include "edit/CKollektorChange.h"
#include "edit/CProcGleisClearKoll.h"
#include "edit/CProcGleisSignalData.h"
#include "edit/CProcGleise.h"
#include "edit/CProcGoodRemove.h"
#include "edit/CProcKontaktErase.h"
#include "edit/CProcKontaktInvalid.h"
#include "edit/CProcKontaktKeyId.h"
#include "edit/CProcKontakte.h"
#include "edit/CTrackRemovalChange.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisOrt.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CObjectTexte.h"
#include "nodes/LayoutLookup.h"
#include "nodes/TrafficLookup.h"

namespace kavrin {

namespace {

// The ids of the tracks of a system that stay, to tell which ids go with the removed ones (a
// repeated id stays while one track of it does).
std::unordered_set<int32_t> GoneIds(const CNodeGleisSys& system,
                                    const std::vector<const CNodeGleis*>& doomed) {
    std::unordered_set<const CNodeGleis*> leaving(doomed.begin(), doomed.end());
    std::unordered_set<int32_t> staying;
    for (const CNodeGleis* track : system.Gleise().Tracks())
        if (!leaving.count(track))
            staying.insert(track->ID());
    std::unordered_set<int32_t> gone;
    for (const CNodeGleis* track : doomed)
        if (!staying.count(track->ID()))
            gone.insert(track->ID());
    return gone;
}
} // namespace

CEraser::CEraser(CAnlage& anlage, CEditStep& step) : anlage_(anlage), step_(step) {}

template <typename Work>
void CEraser::Guarded(const char* member, const char* doing, const char* what, Work work) {
    try {
        work();
    } catch (...) {
        if (!failed_)
            failed_ = Failure{member, doing, what};
        throw;
    }
}

void CEraser::EraseNodes(CNodeBase& parent, std::vector<int32_t> keys) {
    if (!keys.empty())
        step_.Add(CChildrenChange::TakeOut(parent, std::move(keys)));
}

void CEraser::DeleteSelectedTracks(CArrayOfLong& removedKeyIds) {
    Guarded("DeleteSelectedTracks", "Beim Löschen", "Gleise", [&] {
        for (CNodeGleisSys* system : TrackSystems(anlage_)) {
            std::vector<int32_t> eraseList;
            std::vector<const CNodeGleis*> doomed;
            const CArrayOfNodes& children = system->SubNodes();
            for (int32_t i = 0; i < children.Count(); ++i) {
                auto* track = dynamic_cast<CNodeGleis*>(children.Item(i));
                if (!track || !track->Selected())
                    continue;
                if (!track->isDeleteable()) {
                    ++tally_.skipped;
                    continue;
                }
                NoteTrack(*track, removedKeyIds);
                eraseList.push_back(i);
                doomed.push_back(track);
            }
            if (eraseList.empty())
                continue;
            MarkForErase(*system, GoneIds(*system, doomed));
            tally_.gleise += static_cast<int32_t>(eraseList.size());
            step_.Add(CTrackRemovalChange::TakeOut(*system, std::move(eraseList)));
        }
        if (!kontaktListe_.empty())
            EraseKontakteSig(VanishedTargets(kontaktListe_));
        RemoveWaitingRecords(removedTrains_);
        RemoveTimetableEntries();
    });
}

void CEraser::NoteTrack(const CNodeGleis& track, CArrayOfLong& removedKeyIds) {
    if (track.KontaktZiel() > 0)
        kontaktListe_.push_back(track.KontaktZiel());
    for (const auto& child : track.SubNodes()) {
        if (const auto* meldung = dynamic_cast<const CNodeMeldung*>(child.get())) {
            NoteSignal(*meldung, removedKeyIds);
        } else if (const auto* kontakt = dynamic_cast<const CNodeKontakt*>(child.get())) {
            ++tally_.kontakte;
            int32_t target = kontakt->KontaktZiel();
            if (target >= 0 && target != track.KontaktZiel() &&
                std::find(recheck_.begin(), recheck_.end(), target) == recheck_.end())
                recheck_.push_back(target);
        }
    }
    if (track.KeyId() >= 0)
        removedKeyIds.Add(track.KeyId());
}

// A signal goes with its waiting-train records (they are its children); the trains stay.
void CEraser::NoteSignal(const CNodeMeldung& meldung, CArrayOfLong& removedKeyIds) {
    ++tally_.signale;
    if (meldung.KontaktZiel() >= 1)
        kontaktListe_.push_back(meldung.KontaktZiel());
    if (meldung.KeyId() >= 0) {
        removedKeyIds.Add(meldung.KeyId());
        if (FindTimeTable(anlage_))
            fahrplanListe_.insert(meldung.KeyId());
    }
    if (const CNodeBase* signal = SignalPartOf(meldung))
        for (const auto& child : signal->SubNodes())
            if (child->Name() == "Wartender")
                ++tally_.wartende;
}

// What refers to the tracks leaving the system is released as recorded changes; the tracks
// themselves stay whole, for undo.
void CEraser::MarkForErase(CNodeGleisSys& system, const std::unordered_set<int32_t>& goneIds) {
    if (goneIds.empty())
        return;
    CNodeGleisSys::RemovedConnections cut =
        system.RemoveConnectionsIf([&goneIds](const CGleisVerbindung& record) {
            return goneIds.count(record.GleisID1()) || goneIds.count(record.GleisID2());
        });
    if (!cut.Empty()) {
        tally_.verbindungen += static_cast<int32_t>(cut.records.size());
        step_.Add(CConnectionChange::Cut(system, std::move(cut)));
    }
    const int16_t systemId = system.ID();
    for (const auto& chapter : anlage_.RootNode()->SubNodes()) {
        auto* kollektor = dynamic_cast<CNodeKollektor*>(chapter.get());
        if (!kollektor)
            continue;
        CNodeKollektor::RemovedEntries removed = kollektor->RemoveGleiseIf([&](const CKollektorGleis& entry) {
            return entry.GleissystemID == systemId && goneIds.count(entry.GleisID);
        });
        if (!removed.Empty()) {
            tally_.kollektorGleise += static_cast<int32_t>(removed.indices.size());
            step_.Add(CKollektorChange::Removed(*kollektor, std::move(removed)));
        }
    }
    RemoveTrains(TrainsOn(anlage_, [systemId, &goneIds](int16_t system, int32_t gleis) {
        return system == systemId && goneIds.count(gleis);
    }));
}

std::vector<INode*> CEraser::TrainsOn(const CAnlage& anlage,
                                      const std::function<bool(int16_t, int32_t)>& doomed) {
    std::vector<INode*> trains;
    for (CNodeBase* pool : Chapters(anlage, "Fuhrpark"))
        for (const auto& train : pool->SubNodes()) {
            if (train->Name() != "Zugverband")
                continue;
            for (const auto& part : train->SubNodes()) {
                const auto* place = dynamic_cast<const CNodeGleisOrt*>(part.get());
                if (place && doomed(place->GleissystemID(), place->GleisID())) {
                    trains.push_back(train.get());
                    break;
                }
            }
        }
    return trains;
}

// Trains of one vehicle pool go in one change; their keys are kept for the waiting-train
// records and the timetable.
void CEraser::RemoveTrains(const std::vector<INode*>& trains) {
    std::vector<int32_t> indices;
    CNodeBase* pool = nullptr;
    auto flush = [&] {
        if (pool)
            EraseNodes(*pool, std::move(indices));
        indices.clear();
    };
    for (INode* train : trains) {
        auto* parent = dynamic_cast<CNodeBase*>(train->Parent());
        if (!parent)
            continue;
        if (parent != pool) {
            flush();
            pool = parent;
        }
        const CArrayOfNodes& children = pool->SubNodes();
        for (int32_t i = 0; i < children.Count(); ++i)
            if (children.Item(i) == train) {
                indices.push_back(i);
                break;
            }
        if (std::string key = TrainKeyOf(*train); !key.empty())
            removedTrains_.insert(key);
        ++tally_.zugverbaende;
    }
    flush();
}

void CEraser::RemoveWaitingRecords(const std::unordered_set<std::string>& trainKeys) {
    if (trainKeys.empty())
        return;
    for (CNodeGleisSys* system : TrackSystems(anlage_))
        for (const CNodeGleis* track : system->Gleise().Tracks())
            for (const auto& child : track->SubNodes()) {
                const auto* meldung = dynamic_cast<const CNodeMeldung*>(child.get());
                CNodeBase* signal = meldung ? SignalPartOf(*meldung) : nullptr;
                if (!signal)
                    continue;
                std::vector<int32_t> gone;
                for (int32_t i = 0; i < signal->SubNodes().Count(); ++i) {
                    const INode& record = *signal->SubNodes().Item(i);
                    if (record.Name() == "Wartender" && trainKeys.count(WaitingTrainKey(record)))
                        gone.push_back(i);
                }
                tally_.wartende += static_cast<int32_t>(gone.size());
                EraseNodes(*signal, std::move(gone));
            }
}

namespace {
// Whether an attribute name is one by which a timetable entry could name a signal: a key id
// ("Key_Id", "KeyId", "SignalID" ...) or the signal itself.
std::string ToLower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

bool NamesSignal(std::string_view name) {
    std::string lower = ToLower(name);
    return lower.find("key") != std::string::npos || lower.find("signal") != std::string::npos;
}

bool EntryNames(const INode& entry, const std::unordered_set<int32_t>& keyIds,
                const std::unordered_set<std::string>& trains) {
    bool names = false;
    ForEachNode(entry, [&](const INode& node, int) {
        if (names)
            return;
        std::string fuhrpark, zug;
        for (CDictionary::Entry attribute : node.Attributes().Entries()) {
            std::string name = AttributeNames().GetString(attribute.key);
            std::string lower = ToLower(name);
            int32_t value = 0;
            if (NamesSignal(name) && TryTextToLong(AttributeText(node, name), value) && keyIds.count(value))
                names = true;
            if (lower == "fuhrparkid")
                fuhrpark = AttributeText(node, name);
            else if (lower == "zugverbandid" || lower == "zugid")
                zug = AttributeText(node, name);
        }
        int32_t f = 0, z = 0;
        if (!fuhrpark.empty() && !zug.empty() && TryTextToLong(fuhrpark, f) && TryTextToLong(zug, z) &&
            trains.count(TrainKey(f, z)))
            names = true;
    });
    return names;
}
} // namespace

// Every timetable seen so far was empty, so its entries' form is not known. Assumed: an entry
// (a child of "TimeTable") refers to a signal when it, or an element inside it, has an attribute
// whose name speaks of a key or a signal and whose value is that signal's key id; and to a
// train when it names the train's vehicle pool and train id as a waiting-train record does.
// Such entries go; everything else of the timetable stays as it is.
void CEraser::RemoveTimetableEntries() {
    CNodeBase* timetable = FindTimeTable(anlage_);
    if (!timetable || (fahrplanListe_.empty() && removedTrains_.empty()))
        return;
    std::vector<int32_t> gone;
    for (int32_t i = 0; i < timetable->SubNodes().Count(); ++i)
        if (EntryNames(*timetable->SubNodes().Item(i), fahrplanListe_, removedTrains_))
            gone.push_back(i);
    tally_.fahrplan += static_cast<int32_t>(gone.size());
    // A count of entries that matched the entries follows them.
    int32_t count = timetable->SubNodes().Count();
    if (!gone.empty() && HasAttribute(*timetable, "TimeTableItems") &&
        IntAttribute(*timetable, "TimeTableItems", -1) == count)
        step_.Add(CAttributeChange::Set(*timetable, "TimeTableItems",
                                        std::to_string(count - static_cast<int32_t>(gone.size()))));
    EraseNodes(*timetable, std::move(gone));
    fahrplanListe_.clear();
}

void CEraser::DeleteSelectedImmos() {
    Guarded("DeleteSelectedImmos", "Beim Löschen", "Immos", [&] {
        std::vector<int32_t> immoIdx, kollektorIds;
        for (const auto& chapter : anlage_.RootNode()->SubNodes()) {
            auto* collection = dynamic_cast<CNodeImmoSammlung*>(chapter.get());
            if (!collection)
                continue;
            std::vector<int32_t> eraseList;
            for (int32_t i = 0; i < collection->SubNodes().Count(); ++i) {
                auto* immo = dynamic_cast<CNodeImmobilie*>(collection->SubNodes().Item(i));
                if (!immo || !immo->Selected())
                    continue;
                if (!immo->isDeleteable()) {
                    ++tally_.skipped;
                    continue;
                }
                immoIdx.push_back(immo->ImmoIdx());
                for (const CNodeKollektor* kollektor : immo->GetAllKollektors())
                    kollektorIds.push_back(kollektor->ID());
                eraseList.push_back(i);
            }
            tally_.immos += static_cast<int32_t>(eraseList.size());
            EraseNodes(*collection, std::move(eraseList));
        }
        if (!immoIdx.empty())
            RemoveBuildingContacts(immoIdx);
        if (!kollektorIds.empty())
            RemoveOrphanCollectors(kollektorIds);
    });
}

void CEraser::DeleteSelectedGoods() {
    Guarded("DeleteSelectedGoods", "Beim Löschen", "Ladegüter", [&] {
        for (const auto& chapter : anlage_.RootNode()->SubNodes()) {
            if (!dynamic_cast<CNodeGoods*>(chapter.get()))
                continue;
            for (const auto& child : chapter->SubNodes())
                if (auto* good = dynamic_cast<CNodeGood*>(child.get());
                    good && good->Selected() && !good->isDeleteable())
                    ++tally_.skipped;
            CProcGoodRemove remove;
            remove.Init(step_);
            CForAll::Goods(*chapter, &remove);
            tally_.goods += remove.Removed();
        }
    });
}

void CEraser::DeleteSelectedSignals(const std::vector<std::string>& names, CArrayOfLong& removedKeyIds) {
    Guarded("DeleteSelectedSignals", "Beim Löschen", "Signale", [&] {
        std::unordered_set<std::string> chosen(names.begin(), names.end());
        for (CNodeGleisSys* system : TrackSystems(anlage_))
            for (CNodeGleis* track : system->Gleise().Tracks()) {
                std::vector<int32_t> eraseList;
                for (int32_t i = 0; i < track->SubNodes().Count(); ++i) {
                    const auto* meldung = dynamic_cast<const CNodeMeldung*>(track->SubNodes().Item(i));
                    if (meldung && chosen.count(meldung->SignalName())) {
                        NoteSignal(*meldung, removedKeyIds);
                        eraseList.push_back(i);
                    }
                }
                EraseNodes(*track, std::move(eraseList));
            }
        if (!kontaktListe_.empty())
            EraseKontakteSig(VanishedTargets(kontaktListe_));
        RemoveTimetableEntries();
    });
}

void CEraser::WalkTracks(IProc& leaf) {
    CProcGleise gleise;
    gleise.SetNextProc(&leaf);
    std::vector<CNodeGleisSys*> systems = TrackSystems(anlage_);
    CForAll::Gleissysteme(systems, &gleise);
}

void CEraser::WalkContacts(IProc& leaf) {
    CProcKontakte kontakte;
    kontakte.SetNextProc(&leaf);
    WalkTracks(kontakte);
}

void CEraser::EraseContacts(int32_t mode, const std::vector<int32_t>& values) {
    if (values.empty())
        return;
    CArrayOfLong list;
    list.Size(50, 50);
    for (int32_t value : values)
        list.Add(value);
    CProcKontaktErase erase;
    erase.Init(mode, list, step_);
    WalkContacts(erase);
    tally_.kontakte += erase.Removed();
}

void CEraser::EraseKontakteSig(const std::vector<int32_t>& targets) {
    EraseContacts(CProcKontaktErase::ModeTarget, targets);
}

void CEraser::EraseKontaktGruppen(const std::vector<int32_t>& kinds) {
    Guarded("EraseKontaktGruppen", "Beim Löschen", "Kontakte",
            [&] { EraseContacts(CProcKontaktErase::ModeGroup, kinds); });
}

// Building contacts (768) and DKW/EKW contacts (1024) name the building they switch by its
// ImmoIdx in their SetValue.
void CEraser::RemoveBuildingContacts(const std::vector<int32_t>& immoIdx) {
    EraseContacts(CProcKontaktErase::ModeSwitched, immoIdx);
}

// A collector belongs to the building (or moving part) that names it; one that no remaining
// building names any more goes with the deleted ones, and its tracks forget it.
void CEraser::RemoveOrphanCollectors(const std::vector<int32_t>& kollektorIds) {
    std::unordered_set<int32_t> candidates(kollektorIds.begin(), kollektorIds.end());
    for (const auto& chapter : anlage_.RootNode()->SubNodes())
        if (auto* collection = dynamic_cast<CNodeImmoSammlung*>(chapter.get()))
            for (const auto& child : collection->SubNodes())
                if (auto* immo = dynamic_cast<CNodeImmobilie*>(child.get())) {
                    candidates.erase(immo->KollektorId());
                    for (const auto& part : immo->BewegTeile())
                        if (auto* bewegTeil = dynamic_cast<const CNodeBewegTeil*>(part.get()))
                            candidates.erase(bewegTeil->KollektorId());
                }
    if (candidates.empty())
        return;
    auto* root = dynamic_cast<CNodeBase*>(anlage_.RootNode());
    std::vector<int32_t> eraseList;
    for (int32_t i = 0; i < root->SubNodes().Count(); ++i)
        if (auto* kollektor = dynamic_cast<CNodeKollektor*>(root->SubNodes().Item(i));
            kollektor && candidates.count(kollektor->ID()))
            eraseList.push_back(i);
    tally_.kollektoren += static_cast<int32_t>(eraseList.size());
    ClearKollektorLinks(candidates);
    EraseNodes(*root, std::move(eraseList));
}

void CEraser::ClearKollektorLinks(const std::unordered_set<int32_t>& kollektorIds) {
    CArrayOfLong ids;
    for (int32_t id : kollektorIds)
        ids.Add(id);
    CProcGleisClearKoll clear;
    clear.Init(ids, step_);
    WalkTracks(clear);
}

CSet CEraser::ExistingTargets() const {
    CSet targets;
    for (CNodeGleisSys* system : TrackSystems(anlage_))
        for (const CNodeGleis* track : system->Gleise().Tracks()) {
            if (track->KontaktZiel() > 0)
                targets.Use(track->KontaktZiel());
            for (const auto& child : track->SubNodes())
                if (const auto* meldung = dynamic_cast<const CNodeMeldung*>(child.get());
                    meldung && meldung->KontaktZiel() > 0)
                    targets.Use(meldung->KontaktZiel());
        }
    return targets;
}

std::vector<int32_t> CEraser::VanishedTargets(const std::vector<int32_t>& targets) const {
    CSet existing = ExistingTargets();
    std::vector<int32_t> vanished;
    for (int32_t target : targets)
        if (target > 0 && existing.isFree(target) &&
            std::find(vanished.begin(), vanished.end(), target) == vanished.end())
            vanished.push_back(target);
    return vanished;
}

// The contacts whose target went with the deletion are found by CProcKontaktInvalid, reported,
// and removed as EraseKontakteSig removes contacts.
void CEraser::CleanUpKontaktZiele() {
    Guarded("CleanUpKontaktZiele", "Aufräumen", "Kontakte", [&] {
        if (recheck_.empty())
            return;
        CSet existing = ExistingTargets();
        std::vector<int32_t> vanished;
        for (int32_t target : recheck_)
            if (target > 0 && existing.isFree(target))
                vanished.push_back(target);
        recheck_.clear();
        if (vanished.empty())
            return;
        CProcKontaktInvalid invalid;
        invalid.Init(existing);
        WalkContacts(invalid);
        for (const CNodeKontakt* kontakt : invalid.Invalid()) {
            if (kontakt->SetType() != CProcKontaktErase::KindSignal ||
                std::find(vanished.begin(), vanished.end(), kontakt->KontaktZiel()) == vanished.end())
                continue;
            const auto* track = dynamic_cast<const CNodeGleis*>(kontakt->Parent());
            reports_.push_back(FormatMessage(
                "Signal / Weichen-Kontakt am Gleis %1 (%2) entfernt,%nda Kontaktziel >%3< nicht existiert.",
                track ? track->ID() : 0, CObjectTexte::GleisSystem(track ? track->GleisSysID() : 0),
                kontakt->KontaktZiel()));
        }
        EraseContacts(CProcKontaktErase::ModeTarget, vanished);
    });
}

// Key ids still carried by a track or a signal (a repeated one) stay referable.
void CEraser::EraseKeyIdReferences(const CArrayOfLong& removedKeyIds) {
    Guarded("EraseKeyIdReferences", "Aufräumen", "Signaldaten", [&] {
        CSet remaining;
        for (CNodeGleisSys* system : TrackSystems(anlage_))
            for (const CNodeGleis* track : system->Gleise().Tracks()) {
                remaining.Use(track->KeyId());
                for (const auto& child : track->SubNodes())
                    if (const auto* meldung = dynamic_cast<const CNodeMeldung*>(child.get()))
                        remaining.Use(meldung->KeyId());
            }
        CArrayOfLong gone;
        gone.Size(200, 200);
        CSet taken;
        for (int32_t i = 0; i < removedKeyIds.Count(); ++i) {
            int32_t keyId = removedKeyIds.Item(i);
            if (keyId > 0 && remaining.isFree(keyId) && taken.isFree(keyId)) {
                taken.Use(keyId);
                gone.Add(keyId);
            }
        }
        if (gone.Count() == 0)
            return;
        CProcGleisSignalData signalData;
        signalData.Init(CProcGleisSignalData::FuncErase, gone, step_);
        WalkTracks(signalData);
        CProcKontaktKeyId kontaktKeyIds;
        kontaktKeyIds.Init(CProcKontaktKeyId::FuncErase, gone, step_);
        WalkContacts(kontaktKeyIds);
        tally_.signalDaten += signalData.Changed() + kontaktKeyIds.Changed();
    });
}

} // namespace kavrin
