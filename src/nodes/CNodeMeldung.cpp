#include "nodes/CNodeMeldung.h"

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeGleis.h"
#include "nodes/TrackPositionCheck.h"
#include "nodes/modNodes.h"
#include "plan/modPlanSymbols.h"

namespace kavrin {

namespace {
constexpr uint8_t kTargetSlot = 1;
}

std::string_view CNodeMeldung::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "clsid")
        clsIdIndex_ = ClassTexts().PutString(value);
    else if (name == "name")
        signalName_ = value;
    else if (name == "Key_Id")
        keyId_ = TextToLong(value);
    else if (name == "Position")
        return OwnNumber(name, value, position_);
    else if (name == "ParaOderAnti")
        paraOderAnti_ = TextToInteger(value);
    else
        return value;
    return kOwnedValue;
}

Variant CNodeMeldung::XmlAttr(std::string_view name) const {
    if (name == "clsid")
        return ClsID();
    if (name == "name")
        return signalName_;
    if (name == "Key_Id")
        return keyId_;
    if (name == "Position")
        return position_;
    if (name == "ParaOderAnti")
        return paraOderAnti_;
    return {};
}

// An unreadable target number fails the element.
bool CNodeMeldung::AddChild(std::unique_ptr<INode>& child) {
    try {
        if (TakeKontaktZiel(*child))
            return true;
    } catch (...) {
        ReportBadValue(Proc("INode_AddChild"), *child, child->Name(), {}, child->Text());
        return false;
    }
    return CNodeBase::AddChild(child);
}

// A signal is a contact target like a switch track, so its number is registered the same way.
// Only a plain child (text only, the first one) is consumed; anything else is kept as read.
bool CNodeMeldung::TakeKontaktZiel(const INode& child) {
    if (child.Name() != "KontaktZiel" || kontaktZielRead_ || !child.Attributes().Empty() ||
        child.SubNodes().Count() != 0)
        return false;
    int32_t target = TextToLong(child.Text());
    if (!NumberTextReadsAs(child.Text(), target, true)) {
        ReportTextNotReadWhole(child.Name(), child.Text());
        return false;
    }
    NoteOwnedChild(kTargetSlot);
    kontaktZiel_ = target;
    kontaktZielRead_ = true;
    if (kontaktZiel_ >= 1 && Anlage())
        Anlage()->RegisterKontaktziel(kontaktZiel_);
    return true;
}

// The signal is identified by its key id, the number the simulator shows as "Signal n".
bool CNodeMeldung::CheckNode() {
    bool ok = CNodeBase::CheckNode();
    const auto* track = dynamic_cast<const CNodeGleis*>(Parent());
    if (!track || !IsBeyondTrackEnd(*track, position_))
        return ok;
    position_ = track->Laenge();
    if (Anlage())
        Anlage()->SetChangedWhileLoading();
    AddParseHint(FormatMessage("Signal %1: Vorsignal-Position am Gleis korrigiert.", keyId_));
    return ok;
}

std::span<const uint8_t> CNodeMeldung::DefaultSlots() const {
    static const uint8_t order[] = {kTargetSlot, CChildOrder::kKept};
    return order;
}

int CNodeMeldung::OwnedChildCount(uint8_t slot) const {
    return slot == kTargetSlot && kontaktZiel_ != -1 ? 1 : 0;
}

bool CNodeMeldung::WriteOwnedChild(CXmlWriter& writer, uint8_t, int) {
    WriteKontaktZiel(writer, kontaktZiel_);
    return true;
}

std::unique_ptr<INode> CNodeMeldung::Clone() const {
    return CloneOf(*this);
}

// The contact target is copied as it is: whoever pastes the copy decides whether it needs a
// number of its own.
void CNodeMeldung::Copy(const INode& source) {
    CopyBaseContent(source);
    const auto* signal = dynamic_cast<const CNodeMeldung*>(&source);
    if (!signal)
        return;
    clsIdIndex_ = signal->clsIdIndex_;
    signalName_ = signal->signalName_;
    keyId_ = signal->keyId_;
    position_ = signal->position_;
    paraOderAnti_ = signal->paraOderAnti_;
    kontaktZiel_ = signal->kontaktZiel_;
    kontaktZielRead_ = signal->kontaktZielRead_;
}

const std::string& CNodeMeldung::ClsID() const {
    return ClassTexts().GetString(clsIdIndex_);
}

void CNodeMeldung::AddAttrName() {
    AddOwnedAttribute(*this, "name");
}

// A red triangle pointing the way the signal faces.
void CNodeMeldung::DrawMark(CPaintTarget& target, double x, double y, const TrackPlace& place) {
    double sense = paraOderAnti_ == 0 ? -1 : 1;
    DrawSignalMark(target, x, y, place.dx * sense, place.dy * sense, Selected());
}

} // namespace kavrin
