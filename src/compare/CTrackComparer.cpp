#include "compare/CTrackComparer.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "compare/CContentComparer.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CTrackGeometry.h"
#include "nodes/LayoutLookup.h"
#include "plan/CTrackMark.h"

namespace kavrin {

namespace {

const char* EndName(int16_t end) {
    switch (end) {
    case 1:
        return "Anfang";
    case 2:
        return "Ende";
    case 3:
        return "EndeAbzweig";
    case 4:
        return "EndeKoAbzweig";
    default:
        return "?";
    }
}

// Where a track stands and which way its frame faces: the classic frame, or the newer
// format's outer frame (metres, turned into cm).
CDiffPlace FramePlace(const CNodeGleis& track) {
    if (const CTrackCurve* curve = track.Curve()) {
        const CTrackCurve::Frame& frame = curve->GetFrame();
        CDiffPlace place;
        place.pos = CVector(frame.position.X * 100, frame.position.Y * 100, frame.position.Z * 100);
        place.dir = frame.axes[0];
        place.nor = frame.axes[1];
        place.bin = frame.axes[2];
        return place;
    }
    return CDiffPlace::Of(track.DreiBein());
}

std::vector<CTrackComparer::Mark> MarksOf(const CAnlage& anlage, bool signals);

using Record = std::tuple<int32_t, int16_t, int32_t, int16_t>;

// A connection record with its lower end first, so that both directions compare equal.
Record Normalised(int32_t id1, int16_t end1, int32_t id2, int16_t end2) {
    if (std::tie(id2, end2) < std::tie(id1, end1))
        return {id2, end2, id1, end1};
    return {id1, end1, id2, end2};
}

} // namespace

CTrackComparer::CTrackComparer(const CAnlage& alt, const CAnlage& neu, CDiffCollector& out)
    : alt_(alt), neu_(neu), out_(out) {}

CDiffCollector::Object CTrackComparer::TrackObject(const CNodeGleis& track) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Gleise;
    object.name = track.IsSwitch() ? FormatMessage("Weiche %1 (Gleis %2)", track.KeyId(), track.PrintId())
                                   : FormatMessage("Gleis %1", track.PrintId());
    object.order = {track.GleisSysID(), track.ID(), 0};
    return object;
}

CDiffCollector::Object CTrackComparer::SignalObject(const CNodeMeldung& signal, const CNodeGleis& track) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Signale;
    object.name = FormatMessage("Signal %1 (Gleis %2)", signal.KeyId(), track.PrintId());
    object.order = {signal.KeyId(), track.GleisSysID(), track.ID()};
    return object;
}

CDiffCollector::Object CTrackComparer::ContactObject(const CNodeKontakt& contact, const CNodeGleis& track) {
    CDiffCollector::Object object;
    object.kind = DiffKind::Kontakte;
    object.name = FormatMessage("Kontakt bei %1 m (Gleis %2)",
                                DecimalText(contact.Position() / 100.0, 2, false), track.PrintId());
    object.order = {track.GleisSysID(), track.ID(), std::llround(contact.Position() * 100)};
    return object;
}

void CTrackComparer::Run() {
    std::map<int16_t, const CNodeGleisSys*> newSystems;
    for (const CNodeGleisSys* system : TrackSystems(neu_))
        newSystems.emplace(system->ID(), system);
    std::map<int16_t, const CNodeGleisSys*> oldSystems;
    for (const CNodeGleisSys* system : TrackSystems(alt_))
        oldSystems.emplace(system->ID(), system);
    for (const auto& [id, system] : oldSystems) {
        auto other = newSystems.find(id);
        MatchTracks(system, other == newSystems.end() ? nullptr : other->second);
    }
    for (const auto& [id, system] : newSystems)
        if (!oldSystems.count(id))
            MatchTracks(nullptr, system);
    for (const auto& [id, system] : oldSystems)
        if (auto other = newSystems.find(id); other != newSystems.end())
            CompareConnections(*system, *other->second);
    for (const auto& [a, b] : pairs_)
        CompareTrack(*a, *b);
    CompareSignals();
    CompareContacts();
}

void CTrackComparer::MatchTracks(const CNodeGleisSys* a, const CNodeGleisSys* b) {
    std::vector<const CNodeGleis*> removed;
    std::vector<const CNodeGleis*> added;
    if (a) {
        for (const CNodeGleis* track : a->Gleise().Tracks()) {
            const CNodeGleis* other = b ? b->FindGleis(track->ID()) : nullptr;
            if (other) {
                partners_.emplace(track, other);
                pairs_.emplace_back(track, other);
            } else {
                removed.push_back(track);
            }
        }
    }
    if (b)
        for (const CNodeGleis* track : b->Gleise().Tracks())
            if (!a || !a->FindGleis(track->ID()))
                added.push_back(track);
    MatchSwitchesByKey(removed, added);
    for (const CNodeGleis* track : removed) {
        CDiffCollector::Object object = TrackObject(*track);
        object.oldNode = track;
        object.oldPlace = FramePlace(*track);
        out_.Removed(object);
    }
    for (const CNodeGleis* track : added) {
        CDiffCollector::Object object = TrackObject(*track);
        object.newNode = track;
        object.newPlace = FramePlace(*track);
        out_.Added(object);
    }
}

// A switch that stands under another track id in the new layout (laid anew with its number)
// is still that switch: its key id finds it.
void CTrackComparer::MatchSwitchesByKey(std::vector<const CNodeGleis*>& removed,
                                        std::vector<const CNodeGleis*>& added) {
    std::unordered_map<int32_t, size_t> addedByKey;
    for (size_t i = 0; i < added.size(); ++i)
        if (added[i]->IsSwitch() && added[i]->KeyId() > 0)
            addedByKey.emplace(added[i]->KeyId(), i);
    if (addedByKey.empty())
        return;
    std::vector<bool> taken(added.size(), false);
    std::erase_if(removed, [&](const CNodeGleis* track) {
        if (!track->IsSwitch() || track->KeyId() <= 0)
            return false;
        auto found = addedByKey.find(track->KeyId());
        if (found == addedByKey.end() || taken[found->second])
            return false;
        taken[found->second] = true;
        partners_.emplace(track, added[found->second]);
        pairs_.emplace_back(track, added[found->second]);
        return true;
    });
    size_t i = 0;
    std::erase_if(added, [&](const CNodeGleis*) { return taken[i++]; });
}

const CNodeGleis* CTrackComparer::Partner(const CNodeGleis* oldTrack) const {
    auto found = partners_.find(oldTrack);
    return found == partners_.end() ? nullptr : found->second;
}

// Records between tracks that exist in both layouts; what a removed or added track takes with it
// is said by its removal or addition. Each difference is told at the track named first.
void CTrackComparer::CompareConnections(const CNodeGleisSys& a, const CNodeGleisSys& b) {
    std::vector<Record> before;
    for (const CGleisVerbindung& record : a.Verbindungen()) {
        const CNodeGleis* first = Partner(a.FindGleis(record.GleisID1()));
        const CNodeGleis* second = Partner(a.FindGleis(record.GleisID2()));
        if (first && second && first->GleisSysID() == b.ID() && second->GleisSysID() == b.ID())
            before.push_back(Normalised(first->ID(), record.Anschluss1(), second->ID(), record.Anschluss2()));
    }
    std::unordered_map<const CNodeGleis*, bool> matchedNew;
    for (const auto& [oldTrack, newTrack] : partners_)
        matchedNew.emplace(newTrack, true);
    std::vector<Record> after;
    for (const CGleisVerbindung& record : b.Verbindungen()) {
        const CNodeGleis* first = b.FindGleis(record.GleisID1());
        const CNodeGleis* second = b.FindGleis(record.GleisID2());
        if (first && second && matchedNew.count(first) && matchedNew.count(second))
            after.push_back(
                Normalised(record.GleisID1(), record.Anschluss1(), record.GleisID2(), record.Anschluss2()));
    }
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    std::vector<Record> gone;
    std::vector<Record> come;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(), std::back_inserter(gone));
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(come));
    auto note = [&](const Record& record, bool added) {
        const auto& [id1, end1, id2, end2] = record;
        std::string partner = FormatMessage("Gleis %1 %2", id2, EndName(end2));
        CDiffValue value{FormatMessage("Verbindung %1", EndName(end1)), added ? "" : partner,
                         added ? partner : ""};
        connectionValues_[b.FindGleis(id1)].push_back(std::move(value));
    };
    for (const Record& record : gone)
        note(record, false);
    for (const Record& record : come)
        note(record, true);
}

void CTrackComparer::CompareTrack(const CNodeGleis& a, const CNodeGleis& b) {
    std::vector<CDiffValue> values;
    CContentComparer content(values);
    content.Compare(a, b, {}, [](const INode& child) {
        const std::string& name = child.Name();
        return name == "Kontakt" || name == "Meldung";
    });
    if (a.KontaktZiel() != b.KontaktZiel())
        values.push_back({"KontaktZiel", std::to_string(a.KontaktZiel()), std::to_string(b.KontaktZiel())});
    content.CompareNumber("Laenge", a.Laenge(), b.Laenge());
    if (!a.IsNewFormat() && !b.IsNewFormat()) {
        content.CompareNumber("Kruemmung", a.Kruemmung(), b.Kruemmung());
        content.CompareNumber("Torsion", a.Torsion(), b.Torsion());
        content.CompareNumber("Fuehrungsverdrehung", a.FVerdreh(), b.FVerdreh());
        content.CompareNumber("Anfangsfuehrungsverdrehung", a.AnfFuehrVerdrehung(), b.AnfFuehrVerdrehung());
    } else if (a.IsNewFormat() && b.IsNewFormat()) {
        const CTrackCurve& x = *a.Curve();
        const CTrackCurve& y = *b.Curve();
        content.CompareNumber("Interval near", x.Near(), y.Near());
        content.CompareNumber("Interval far", x.Far(), y.Far());
        bool sameCurve = x.CurveKind() == y.CurveKind() && x.Vectors().size() == y.Vectors().size();
        for (size_t i = 0; sameCurve && i < x.Vectors().size(); ++i) {
            const CVector& p = x.Vectors()[i];
            const CVector& q = y.Vectors()[i];
            sameCurve = CContentComparer::SameNumber(p.X, q.X) && CContentComparer::SameNumber(p.Y, q.Y) &&
                        CContentComparer::SameNumber(p.Z, q.Z);
        }
        if (!sameCurve)
            values.push_back({"Curve", "", FormatMessage("geändert")});
    } else {
        values.push_back({"Format", a.IsNewFormat() ? "Curve" : "Charakteristik",
                          b.IsNewFormat() ? "Curve" : "Charakteristik"});
    }
    if (auto found = connectionValues_.find(&b); found != connectionValues_.end())
        values.insert(values.end(), found->second.begin(), found->second.end());
    CDiffCollector::Object object = TrackObject(b);
    object.oldNode = &a;
    object.newNode = &b;
    object.oldPlace = FramePlace(a);
    object.newPlace = FramePlace(b);
    out_.Matched(object, std::move(values));
}

namespace {

std::vector<CTrackComparer::Mark> MarksOf(const CAnlage& anlage, bool signals) {
    std::vector<CTrackComparer::Mark> marks;
    for (const CNodeGleisSys* system : TrackSystems(anlage))
        for (const CNodeGleis* track : system->Gleise().Tracks())
            for (const auto& child : track->SubNodes()) {
                if (!child)
                    continue;
                bool wanted = signals ? dynamic_cast<const CNodeMeldung*>(child.get()) != nullptr
                                      : dynamic_cast<const CNodeKontakt*>(child.get()) != nullptr;
                if (wanted)
                    marks.push_back({child.get(), track});
            }
    return marks;
}

double MarkPosition(const INode* node) {
    if (const auto* signal = dynamic_cast<const CNodeMeldung*>(node))
        return signal->Position();
    return static_cast<const CNodeKontakt*>(node)->Position();
}

} // namespace

// Three rounds: the same key id on the same track; the same track and place (a key id that was
// renumbered); the same key id elsewhere (a signal set onto another track).
void CTrackComparer::CompareSignals() {
    std::vector<Mark> before = MarksOf(alt_, true);
    std::vector<Mark> after = MarksOf(neu_, true);
    std::vector<int> partnerOf(before.size(), -1);
    std::vector<bool> taken(after.size(), false);
    auto keyOf = [](const Mark& mark) { return static_cast<const CNodeMeldung*>(mark.node)->KeyId(); };
    std::unordered_multimap<int32_t, size_t> afterByKey;
    std::unordered_multimap<const CNodeGleis*, size_t> afterByTrack;
    for (size_t j = 0; j < after.size(); ++j) {
        afterByKey.emplace(keyOf(after[j]), j);
        afterByTrack.emplace(after[j].track, j);
    }
    auto round = [&](auto candidates, auto fits) {
        for (size_t i = 0; i < before.size(); ++i) {
            if (partnerOf[i] >= 0)
                continue;
            auto [from, to] = candidates(before[i]);
            for (auto it = from; it != to; ++it) {
                size_t j = it->second;
                if (!taken[j] && fits(before[i], after[j])) {
                    partnerOf[i] = static_cast<int>(j);
                    taken[j] = true;
                    break;
                }
            }
        }
    };
    auto byKey = [&](const Mark& mark) { return afterByKey.equal_range(keyOf(mark)); };
    auto byTrack = [&](const Mark& mark) { return afterByTrack.equal_range(Partner(mark.track)); };
    round(byKey, [&](const Mark& a, const Mark& b) { return Partner(a.track) == b.track; });
    round(byTrack, [&](const Mark& a, const Mark& b) {
        return CContentComparer::SameNumber(MarkPosition(a.node), MarkPosition(b.node));
    });
    round(byKey, [](const Mark&, const Mark&) { return true; });

    for (size_t i = 0; i < before.size(); ++i) {
        const auto& signal = static_cast<const CNodeMeldung&>(*before[i].node);
        if (partnerOf[i] < 0) {
            CDiffCollector::Object object = SignalObject(signal, *before[i].track);
            object.oldNode = &signal;
            out_.Removed(object);
            continue;
        }
        const Mark& other = after[static_cast<size_t>(partnerOf[i])];
        const auto& newSignal = static_cast<const CNodeMeldung&>(*other.node);
        std::vector<CDiffValue> values;
        CContentComparer content(values);
        if (before[i].track->GleisSysID() != other.track->GleisSysID() ||
            before[i].track->ID() != other.track->ID())
            values.push_back({"Gleis", before[i].track->PrintId(), other.track->PrintId()});
        content.Compare(signal, newSignal);
        if (signal.KontaktZiel() != newSignal.KontaktZiel())
            values.push_back({"KontaktZiel", std::to_string(signal.KontaktZiel()),
                              std::to_string(newSignal.KontaktZiel())});
        CDiffCollector::Object object = SignalObject(newSignal, *other.track);
        object.oldNode = &signal;
        object.newNode = &newSignal;
        out_.Matched(object, std::move(values));
    }
    for (size_t j = 0; j < after.size(); ++j) {
        if (taken[j])
            continue;
        CDiffCollector::Object object =
            SignalObject(static_cast<const CNodeMeldung&>(*after[j].node), *after[j].track);
        object.newNode = after[j].node;
        out_.Added(object);
    }
}

// A contact is known by its track and its place on it; two at one place pair in file order.
void CTrackComparer::CompareContacts() {
    std::vector<Mark> before = MarksOf(alt_, false);
    std::vector<Mark> after = MarksOf(neu_, false);
    std::unordered_multimap<const CNodeGleis*, size_t> afterByTrack;
    for (size_t j = 0; j < after.size(); ++j)
        afterByTrack.emplace(after[j].track, j);
    std::vector<bool> taken(after.size(), false);
    for (const Mark& mark : before) {
        const auto& contact = static_cast<const CNodeKontakt&>(*mark.node);
        const INode* partner = nullptr;
        const CNodeGleis* partnerTrack = nullptr;
        // The multimap hands out equal keys in no set order: the first in file order wins.
        size_t best = after.size();
        auto [from, to] = afterByTrack.equal_range(Partner(mark.track));
        for (auto it = from; it != to; ++it) {
            size_t j = it->second;
            if (!taken[j] && j < best &&
                CContentComparer::SameNumber(contact.Position(), MarkPosition(after[j].node)))
                best = j;
        }
        if (best < after.size()) {
            taken[best] = true;
            partner = after[best].node;
            partnerTrack = after[best].track;
        }
        if (!partner) {
            CDiffCollector::Object object = ContactObject(contact, *mark.track);
            object.oldNode = &contact;
            out_.Removed(object);
            continue;
        }
        std::vector<CDiffValue> values;
        CContentComparer(values).Compare(contact, *partner);
        CDiffCollector::Object object =
            ContactObject(static_cast<const CNodeKontakt&>(*partner), *partnerTrack);
        object.oldNode = &contact;
        object.newNode = partner;
        out_.Matched(object, std::move(values));
    }
    for (size_t j = 0; j < after.size(); ++j) {
        if (taken[j])
            continue;
        CDiffCollector::Object object =
            ContactObject(static_cast<const CNodeKontakt&>(*after[j].node), *after[j].track);
        object.newNode = after[j].node;
        out_.Added(object);
    }
}

namespace {

// Where a node of the track network is drawn; false for other nodes.
bool TrackPlaceOf(const INode* node, CVector& place) {
    if (!node)
        return false;
    if (const auto* track = dynamic_cast<const CNodeGleis*>(node)) {
        double length = 0;
        place = track->Anchor(length);
        return true;
    }
    const auto* mark = dynamic_cast<const CTrackMark*>(node);
    const auto* track = mark ? dynamic_cast<const CNodeGleis*>(node->Parent()) : nullptr;
    if (!track)
        return false;
    CTrackGeometry geometry(*track);
    place = geometry.PointAt(std::clamp(mark->DistanceAlongTrack(), 0.0, geometry.Length()));
    return true;
}

} // namespace

void CTrackComparer::PlaceOnTracks(std::vector<CDiffEntry>& entries) {
    for (CDiffEntry& entry : entries) {
        if (entry.kind != DiffKind::Gleise && entry.kind != DiffKind::Signale &&
            entry.kind != DiffKind::Kontakte)
            continue;
        entry.hasOldPlace = TrackPlaceOf(entry.oldNode, entry.oldPlace);
        entry.hasNewPlace = TrackPlaceOf(entry.newNode, entry.newPlace);
    }
}

} // namespace kavrin
