#include "nodes/CNodeGleisSys.h"

#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisverbindung.h"
#include "nodes/modNodes.h"

namespace kavrin {

std::string CNodeGleisSys::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "GleissystemID")
        return std::string(value);
    id_ = TextToInteger(value);
    return kOwnedValue;
}

Variant CNodeGleisSys::XmlAttr(std::string_view name) const {
    return name == "GleissystemID" ? Variant{id_} : Variant{};
}

int16_t CNodeGleisSys::Number() const {
    std::string number = AttributeText(*this, "TrackSystemNumber");
    return number.empty() ? id_ : static_cast<int16_t>(TextToNumber(number));
}

bool CNodeGleisSys::AddChild(std::unique_ptr<INode>& child) {
    const std::string& name = child->Name();
    if (auto* dreibein = dynamic_cast<CNodeDreibein*>(child.get()); dreibein && name == "Dreibein") {
        frame_.grab3Bein(*dreibein);
        hasFrame_ = true;
        return true;
    }
    if (auto* connection = dynamic_cast<CNodeGleisverbindung*>(child.get()))
        return ApplyConnection(*connection);
    if (auto* track = dynamic_cast<CNodeGleis*>(child.get())) {
        track->SetGleisSysID(id_);
        gleise_.Add(track);
    }
    return CNodeBase::AddChild(child);
}

// The tracks must have been read before their connections, as the simulator writes them.
bool CNodeGleisSys::ApplyConnection(CNodeGleisverbindung& connection) {
    if (!connection.CheckNode())
        return false;
    CNodeGleis* a = gleise_.Find(connection.GleisID1());
    CNodeGleis* b = gleise_.Find(connection.GleisID2());
    if (!a || !b) {
        // Nothing can hold a connection to a track that is not there: it is dropped, and the
        // document counts as changed so that the user sees the repair.
        AddParseHint(FormatMessage("Gleisverbindung von Gleis %1 zu Gleis %2 im Gleissystem %3 verworfen:%n"
                                   "eines der beiden Gleise gibt es nicht.",
                                   connection.GleisID1(), connection.GleisID2(), id_));
        if (Anlage())
            Anlage()->SetChangedWhileLoading();
        return true;
    }
    a->SetVerbindung(connection.Anschluss1(), connection.GleisID2());
    a->SetAnschluss(connection.Anschluss1(), connection.Anschluss2());
    b->SetVerbindung(connection.Anschluss2(), connection.GleisID1());
    b->SetAnschluss(connection.Anschluss2(), connection.Anschluss1());
    auto extras = connection.ExtraAttributes();
    a->SetConnectionExtras(connection.Anschluss1(), extras);
    b->SetConnectionExtras(connection.Anschluss2(), std::move(extras));
    return true;
}

bool CNodeGleisSys::XmlChildren(CXmlWriter& writer) {
    // The simulator always writes the system's frame; one read without it gains none.
    if (hasFrame_ && !WriteDreibein(writer, frame_))
        return false;
    return CNodeBase::XmlChildren(writer) && WriteConnections(writer);
}

// Every connected pair once, from the track with the smaller id, in registry order.
bool CNodeGleisSys::WriteConnections(CXmlWriter& writer) const {
    for (const CNodeGleis* track : gleise_.Tracks()) {
        for (int16_t end = kAnfang; end <= kEndeKoAbzweig; ++end) {
            int32_t other = track->Verbindung(end);
            if (other <= track->ID())
                continue;
            writer.StartElement("Gleisverbindung");
            writer.Attribute("GleisID1", std::to_string(track->ID()));
            writer.Attribute("Anschluss1", CNodeGleisverbindung::EncodeEnd(end));
            writer.Attribute("GleisID2", std::to_string(other));
            writer.Attribute("Anschluss2", CNodeGleisverbindung::EncodeEnd(track->Anschluss(end)));
            if (const auto* extras = track->ConnectionExtras(end))
                for (const auto& [name, value] : *extras)
                    writer.Attribute(name, value);
            writer.EndElement();
        }
    }
    return true;
}

void CNodeGleisSys::Clear() {
    gleise_.Clear();
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
    if (const auto* system = dynamic_cast<const CNodeGleisSys*>(&source)) {
        frame_.Copy(system->frame_);
        hasFrame_ = system->hasFrame_;
        id_ = system->id_;
    }
}

void CNodeGleisSys::CutConnections(CNodeGleis& track, const std::function<bool(const CNodeGleis&)>& state) {
    for (int16_t end = kAnfang; end <= kEndeKoAbzweig; ++end) {
        if (track.Verbindung(end) <= 0)
            continue;
        CNodeGleis* neighbour = gleise_.Find(track.Verbindung(end));
        if (!neighbour || state(*neighbour) == state(track))
            continue;
        int16_t otherEnd = track.Anschluss(end);
        if (otherEnd >= kAnfang && otherEnd <= kEndeKoAbzweig)
            neighbour->Disconnect(otherEnd);
        track.Disconnect(end);
    }
}

} // namespace kavrin
