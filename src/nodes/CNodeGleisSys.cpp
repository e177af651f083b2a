#include "nodes/CNodeGleisSys.h"

#include <algorithm>
#include <pugixml.hpp>
#include <unordered_set>

#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisverbindung.h"

namespace kavrin {

namespace {
constexpr uint8_t kFrameSlot = 1;
constexpr uint8_t kConnectionSlot = 2;
} // namespace

std::string_view CNodeGleisSys::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "GleissystemID")
        return value;
    id_ = TextToInteger(value);
    return kOwnedValue;
}

Variant CNodeGleisSys::XmlAttr(std::string_view name) const {
    return name == "GleissystemID" ? Variant{id_} : Variant{};
}

int32_t CNodeGleisSys::Number() const {
    std::string number = AttributeText(*this, "TrackSystemNumber");
    return number.empty() ? id_ : ClampedInteger(TextToNumber(number));
}

std::span<const uint8_t> CNodeGleisSys::DefaultSlots() const {
    static const uint8_t order[] = {kFrameSlot, CChildOrder::kKept, kConnectionSlot};
    return order;
}

int CNodeGleisSys::OwnedChildCount(uint8_t slot) const {
    if (slot == kConnectionSlot)
        return static_cast<int>(verbindungen_.size());
    return slot == kFrameSlot && frame_.Present() ? 1 : 0;
}

bool CNodeGleisSys::WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) {
    if (slot == kFrameSlot)
        return frame_.Write(writer);
    verbindungen_[static_cast<size_t>(instance)].Write(writer);
    return true;
}

// Connection records are read straight from the file; one with child elements is not a
// connection the system knows and stays as read.
bool CNodeGleisSys::TakeElement(const XmlElement& element) {
    if (frame_.OfferElement(element, [this] { NoteOwnedChild(kFrameSlot); }))
        return true;
    if (std::string_view(element.name()) != "Gleisverbindung" || element.first_child())
        return false;
    TakeConnection(CGleisVerbindung::Read(element));
    return true;
}

bool CNodeGleisSys::AddChild(std::unique_ptr<INode>& child) {
    if (frame_.Offer(child, [this] { NoteOwnedChild(kFrameSlot); }))
        return true;
    if (auto* track = dynamic_cast<CNodeGleis*>(child.get())) {
        track->SetGleisSysID(id_);
        ReportUnusualId(*track);
        gleise_.Add(track);
    } else if (child->Name() == "Gleisverbindung") {
        AddParseHint(
            FormatMessage("Eine Gleisverbindung mit Unterelementen im Gleissystem %1 bleibt, wie sie ist,%n"
                          "verbindet aber keine Gleise.",
                          id_));
    }
    return CNodeBase::AddChild(child);
}

// A track id is a number from 1 up and unique in its system; a track with another is kept as
// read, but connections to it are not made (the first of a repeated id is the one found).
void CNodeGleisSys::ReportUnusualId(const CNodeGleis& track) const {
    if (track.ID() <= 0)
        AddParseHint(
            FormatMessage("Gleis %1 im Gleissystem %2 hat keine gültige Gleis-ID (sie muss größer als 0 "
                          "sein);%ndas Gleis bleibt erhalten, wird aber mit keinem Gleis verbunden.",
                          track.ID(), id_));
    else if (gleise_.Find(track.ID()))
        AddParseHint(
            FormatMessage("Die Gleis-ID %1 steht im Gleissystem %2 mehrfach; beide Gleise bleiben erhalten,%n"
                          "Gleisverbindungen gelten dem ersten Gleis mit dieser ID.",
                          track.ID(), id_));
}

// The tracks must have been read before their connections, as the simulator writes them. A
// record that cannot be a connection is dropped, and the layout counts as changed, so that the
// user sees the repair.
void CNodeGleisSys::TakeConnection(std::optional<CGleisVerbindung> record) {
    if (record && (!gleise_.Find(record->GleisID1()) || !gleise_.Find(record->GleisID2()))) {
        AddParseHint(FormatMessage("Gleisverbindung von Gleis %1 zu Gleis %2 im Gleissystem %3 verworfen:%n"
                                   "eines der beiden Gleise gibt es nicht.",
                                   record->GleisID1(), record->GleisID2(), id_));
        record.reset();
    }
    if (!record) {
        if (Anlage())
            Anlage()->SetChangedWhileLoading();
        return;
    }
    if (record->GleisID1() == record->GleisID2())
        AddParseHint(FormatMessage("Gleis %1 im Gleissystem %2 ist mit sich selbst verbunden (%3 mit %4);%n"
                                   "die Gleisverbindung bleibt in der Datei, verbindet aber nichts.",
                                   record->GleisID1(), id_,
                                   CNodeGleisverbindung::EncodeEnd(record->Anschluss1()),
                                   CNodeGleisverbindung::EncodeEnd(record->Anschluss2())));
    NoteOwnedChild(kConnectionSlot);
    verbindungen_.push_back(std::move(*record));
    LinkEnds(verbindungen_.back());
}

// Only records between two tracks with valid ids become links of their ends.
void CNodeGleisSys::LinkEnds(const CGleisVerbindung& record) {
    if (record.GleisID1() == record.GleisID2() || record.GleisID1() <= 0 || record.GleisID2() <= 0)
        return;
    auto link = [this](int32_t id, int16_t end, int32_t otherId, int16_t otherEnd) {
        CNodeGleis* track = gleise_.Find(id);
        if (track && end >= kAnfang && end <= kEndeKoAbzweig && track->Verbindung(end) <= 0) {
            track->SetVerbindung(end, otherId);
            track->SetAnschluss(end, otherEnd);
        }
    };
    link(record.GleisID1(), record.Anschluss1(), record.GleisID2(), record.Anschluss2());
    link(record.GleisID2(), record.Anschluss2(), record.GleisID1(), record.Anschluss1());
}

// After records came or went, the ends of the tracks they joined name their first record anew.
void CNodeGleisSys::RelinkEnds(const std::vector<CGleisVerbindung>& changed) {
    std::unordered_set<int32_t> ids;
    for (const CGleisVerbindung& record : changed) {
        ids.insert(record.GleisID1());
        ids.insert(record.GleisID2());
    }
    for (int32_t id : ids)
        if (CNodeGleis* track = gleise_.Find(id))
            for (int16_t end = kAnfang; end <= kEndeKoAbzweig; ++end)
                track->Disconnect(end);
    for (const CGleisVerbindung& record : verbindungen_)
        if (ids.count(record.GleisID1()) || ids.count(record.GleisID2()))
            LinkEnds(record);
}

CNodeGleisSys::RemovedConnections
CNodeGleisSys::RemoveConnectionsIf(const std::function<bool(const CGleisVerbindung&)>& remove) {
    RemovedConnections removed;
    size_t kept = 0;
    for (size_t i = 0; i < verbindungen_.size(); ++i) {
        if (remove(verbindungen_[i])) {
            removed.indices.push_back(i);
            removed.records.push_back(std::move(verbindungen_[i]));
        } else if (kept != i) {
            verbindungen_[kept++] = std::move(verbindungen_[i]);
        } else {
            ++kept;
        }
    }
    verbindungen_.resize(kept);
    // A recorded order loses the entries from the highest down, so the places stay right.
    removed.orderPlaces.resize(removed.indices.size(), CChildOrder::npos);
    for (size_t i = removed.indices.size(); i-- > 0;)
        removed.orderPlaces[i] = ChildOrder().Removed(kConnectionSlot, static_cast<int>(removed.indices[i]));
    RelinkEnds(removed.records);
    return removed;
}

void CNodeGleisSys::RestoreConnections(const RemovedConnections& removed) {
    if (removed.Empty())
        return;
    std::vector<CGleisVerbindung> merged;
    merged.reserve(verbindungen_.size() + removed.indices.size());
    size_t next = 0, back = 0;
    for (size_t i = 0; i < verbindungen_.size() + removed.indices.size(); ++i) {
        if (back < removed.indices.size() && removed.indices[back] == i)
            merged.push_back(removed.records[back++]);
        else
            merged.push_back(std::move(verbindungen_[next++]));
    }
    verbindungen_ = std::move(merged);
    for (size_t i = 0; i < removed.indices.size(); ++i)
        ChildOrder().Restore(removed.orderPlaces[i], kConnectionSlot);
    RelinkEnds(removed.records);
}

// The records are handed to the test in place and in order, so a record's place is its index.
CNodeGleisSys::RemovedConnections CNodeGleisSys::RemoveConnectionsAt(const std::vector<size_t>& indices) {
    const CGleisVerbindung* first = verbindungen_.data();
    return RemoveConnectionsIf([first, &indices](const CGleisVerbindung& record) {
        return std::binary_search(indices.begin(), indices.end(), static_cast<size_t>(&record - first));
    });
}

CNodeGleisSys::RemovedConnections
CNodeGleisSys::CutConnections(const std::function<bool(const CNodeGleis&)>& state) {
    return RemoveConnectionsIf([this, &state](const CGleisVerbindung& record) {
        const CNodeGleis* a = gleise_.Find(record.GleisID1());
        const CNodeGleis* b = gleise_.Find(record.GleisID2());
        return a && b && state(*a) != state(*b);
    });
}

CNodeGleisSys::RemovedConnections
CNodeGleisSys::CutConnections(CNodeGleis& track, const std::function<bool(const CNodeGleis&)>& state) {
    bool own = state(track);
    return RemoveConnectionsIf([this, &track, &state, own](const CGleisVerbindung& record) {
        if (!record.Joins(track.ID()))
            return false;
        const CNodeGleis* other =
            gleise_.Find(record.GleisID1() == track.ID() ? record.GleisID2() : record.GleisID1());
        return other && state(*other) != own;
    });
}

// The registry holds the tracks in the order of the children, the first of a repeated id
// findable: entering them anew in that order gives exactly what loading gave.
void CNodeGleisSys::RebuildGleise() {
    gleise_.Clear();
    for (const auto& child : SubNodes())
        if (auto* track = dynamic_cast<CNodeGleis*>(child.get()))
            gleise_.Add(track);
}

void CNodeGleisSys::Clear() {
    gleise_.Clear();
    verbindungen_.clear();
    CNodeBase::Clear();
}

std::unique_ptr<INode> CNodeGleisSys::Clone() const {
    return CloneOf(*this);
}

void CNodeGleisSys::Copy(const INode& source) {
    gleise_.Clear();
    CopyBaseContent(source);
    for (const auto& child : SubNodes())
        if (auto* track = dynamic_cast<CNodeGleis*>(child.get()))
            gleise_.Add(track);
    const auto* system = dynamic_cast<const CNodeGleisSys*>(&source);
    if (!system)
        return;
    frame_.CopyFrom(system->frame_, this);
    id_ = system->id_;
    verbindungen_ = system->verbindungen_;
    for (const CGleisVerbindung& record : verbindungen_)
        LinkEnds(record);
}

} // namespace kavrin
