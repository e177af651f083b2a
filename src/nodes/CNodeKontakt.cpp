#include "nodes/CNodeKontakt.h"

#include <cstdint>

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CObjectTexte.h"
#include "nodes/TrackPositionCheck.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
// The track's system as the user knows it ("Eisenbahn", "Strasse" ...). The system is asked
// itself: the track learns its system id only when the system takes it, after its children.
std::string TrackSystemText(const CNodeGleis& track) {
    const auto* system = dynamic_cast<const CNodeGleisSys*>(track.Parent());
    return CObjectTexte::GleisSystem(system ? system->Number() : track.GleisSysID());
}
} // namespace

std::string_view CNodeKontakt::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "Position")
        return OwnNumber(name, value, position_);
    else if (name == "KontaktZiel")
        kontaktZiel_ = TextToLong(value);
    else if (name == "ConnectF")
        connectF_ = TextToLong(value);
    else if (name == "SetType")
        setType_ = TextToLong(value);
    else if (name == "SetValue")
        setValue_ = TextToLong(value);
    else if (name == "SignalData")
        SplitSignalData(TextToLong(value));
    else if (name == "clsid")
        clsIdIndex_ = ClassTexts().PutString(value);
    else
        return value;
    return kOwnedValue;
}

Variant CNodeKontakt::XmlAttr(std::string_view name) const {
    if (name == "Position")
        return position_;
    if (name == "KontaktZiel")
        return kontaktZiel_;
    if (name == "ConnectF")
        return connectF_;
    if (name == "SetType")
        return setType_;
    if (name == "SetValue")
        return setValue_;
    if (name == "SignalData")
        return SignalData();
    if (name == "clsid")
        return ClsID();
    return {};
}

// The track is identified by its id and its track system.
bool CNodeKontakt::CheckNode() {
    bool ok = CNodeBase::CheckNode();
    const auto* track = dynamic_cast<const CNodeGleis*>(Parent());
    if (!track || !IsBeyondTrackEnd(*track, position_))
        return ok;
    position_ = track->Laenge();
    if (Anlage())
        Anlage()->SetChangedWhileLoading();
    AddParseHint(
        FormatMessage("Kontakt-Position am Gleis %1 (%2) korrigiert.", track->ID(), TrackSystemText(*track)));
    return ok;
}

// A signal data value set to parts that no longer fit 32 bits fails the element, not the program.
bool CNodeKontakt::XmlAttributes(CXmlWriter& writer) {
    try {
        return CNodeBase::XmlAttributes(writer);
    } catch (...) {
        ReportCurrentError(Proc("INode_XmlAttributes"));
        return false;
    }
}

std::unique_ptr<INode> CNodeKontakt::Clone() const {
    return CloneOf(*this);
}

void CNodeKontakt::Copy(const INode& source) {
    CopyBaseContent(source);
    const auto* contact = dynamic_cast<const CNodeKontakt*>(&source);
    if (!contact)
        return;
    position_ = contact->position_;
    kontaktZiel_ = contact->kontaktZiel_;
    connectF_ = contact->connectF_;
    setType_ = contact->setType_;
    setValue_ = contact->setValue_;
    signalLow_ = contact->signalLow_;
    signalHigh_ = contact->signalHigh_;
    clsIdIndex_ = contact->clsIdIndex_;
}

int32_t CNodeKontakt::SignalData() const {
    int64_t value = static_cast<int64_t>(signalHigh_) * 65536 + signalLow_;
    if (value < INT32_MIN || value > INT32_MAX)
        throw CError::Overflow();
    return static_cast<int32_t>(value);
}

const std::string& CNodeKontakt::ClsID() const {
    return ClassTexts().GetString(clsIdIndex_);
}

// Low part = value AND 65535, high part = value / 65536 truncated toward zero. For negative
// values the parts do not give the value back (-1 is written as 65535); that is intended.
void CNodeKontakt::SplitSignalData(int32_t value) {
    signalLow_ = value & 0xFFFF;
    signalHigh_ = value / 65536;
}

// A small square coloured by the contact's kind.
void CNodeKontakt::DrawMark(CPaintTarget& target, double x, double y, const TrackPlace&) {
    DrawContactMark(target, x, y, setType_, Selected());
}

} // namespace kavrin
