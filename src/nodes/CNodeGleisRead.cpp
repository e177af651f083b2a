// Reading a track: the children whose values it keeps itself are taken straight from the file
// or from their nodes; the rest stays as read.
#include <pugixml.hpp>

#include "document/CAnlage.h"
#include "document/CParseSource.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeAnfFuehrVerdrehung.h"
#include "nodes/CNodeCharakteristik.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/modNodes.h"

namespace kavrin {

bool CNodeGleis::AddChild(std::unique_ptr<INode>& child) {
    try {
        if (ConsumeChild(child))
            return true;
    } catch (...) {
        ReportBadValue(Proc("INode_AddChild"), *child, child->Name(), {}, child->Text());
        return false;
    }
    if (curve_ && child->Name() == "Frame" && !keptFrame_)
        keptFrame_ = child.get();
    ReportRepeatedPart(*child);
    return CNodeBase::AddChild(child);
}

// A second frame, characteristic or contact target is kept where it stands, but only the first
// counts; the user learns which track has more than one.
void CNodeGleis::ReportRepeatedPart(const INode& child) const {
    const std::string& name = child.Name();
    bool repeated =
        (name == "Dreibein" && frame_.Present()) || (name == "Charakteristik" && hasCharakteristik_) ||
        (name == "Anfangsfuehrungsverdrehung" && hasAnf_) || (name == "KontaktZiel" && kontaktZielRead_);
    if (!repeated)
        return;
    const auto* system = dynamic_cast<const CNodeGleisSys*>(Parent());
    AddParseHint(FormatMessage("Gleis %1 im Gleissystem %2 hat mehr als ein '%3';%n"
                               "das erste gilt, jedes weitere bleibt in der Datei, gilt aber nicht.",
                               id_, system ? system->ID() : gleisSysId_, name));
}

// The newer format's elements are read straight from the file, without nodes being made of them.
// A frame with more in it than the curve holds stays a node, but its numbers are read.
bool CNodeGleis::TakeElement(const XmlElement& element) {
    const char* name = element.name();
    if (name[0] == 'D')
        return frame_.OfferElement(element, [this] { NoteOwnedChild(kDreibeinSlot); });
    if (NameIs(name, "Charakteristik") || NameIs(name, "Anfangsfuehrungsverdrehung") ||
        NameIs(name, "KontaktZiel"))
        return TakeClassicElement(element);
    std::optional<CTrackCurve::Part> part = CTrackCurve::PartOf(name);
    if (!part)
        return false;
    CTrackCurve& curve = NewFormat();
    if (!curve.Accepts(element)) {
        if (*part == CTrackCurve::Part::Frame && !curve.HasFrameNumbers())
            curve.ReadFrameNumbers(element);
        return false;
    }
    std::string_view raw;
    if (const CParseSource* source = CParseSource::Current())
        raw = source->Raw(element);
    NoteOwnedChild(static_cast<uint8_t>(kFrameSlot + static_cast<uint8_t>(*part)));
    curve.Take(element, raw);
    ForgetGeometry();
    return true;
}

// The classic children, read straight from the file when they hold nothing unusual.
bool CNodeGleis::TakeClassicElement(const XmlElement& element) {
    std::string_view name = element.name();
    if (name == "KontaktZiel") {
        pugi::xml_node text = element.first_child();
        if (kontaktZielRead_ || element.first_attribute() ||
            (text && (text.type() != pugi::node_pcdata || text.next_sibling())))
            return false;
        int32_t target = 0;
        if (!TryTextToLong(text.value(), target) || !NumberTextReadsAs(text.value(), target, true))
            return false; // the node's own path reports the unreadable number
        NoteOwnedChild(kTargetSlot);
        SetReadKontaktZiel(target);
        return true;
    }
    if (element.first_child())
        return false;
    // A number the file's format cannot carry stays as read: the class keeps only its value.
    auto own = [&name](double& field, std::string_view key, std::string_view value) {
        field = TextToNumber(value);
        if (!FileNumberFits(field))
            ReportNumberKeptAsRead(name, key, value);
        else if (!NumberTextReadsAs(value, field, false))
            KeepNumberAsRead(name, key, value, field); // the hint; the text is kept as read
        else
            return true;
        return false;
    };
    if (name == "Charakteristik" && !hasCharakteristik_) {
        NoteOwnedChild(kCharakteristikSlot);
        double* values[] = {&kruemmung_, &torsion_, &fVerdreh_, &laenge_};
        ReadAttributes(element, charakteristikAttributes_,
                       [&values, &own](std::string_view key, std::string_view value) {
                           int index = CNodeCharakteristik::ValueIndex(key);
                           return index >= 0 && own(*values[index], key, value);
                       });
        hasCharakteristik_ = true;
        return true;
    }
    if (name == "Anfangsfuehrungsverdrehung" && !hasAnf_) {
        NoteOwnedChild(kAnfSlot);
        ReadAttributes(element, anfFuehrAttributes_,
                       [this, &own](std::string_view key, std::string_view value) {
                           return key == "Wert" && own(anfFuehrVerdrehung_, key, value);
                       });
        hasAnf_ = true;
        return true;
    }
    return false;
}

void CNodeGleis::SetReadKontaktZiel(int32_t target) {
    kontaktZiel_ = target;
    kontaktZielRead_ = true;
    if (kontaktZiel_ >= 1 && Anlage())
        Anlage()->RegisterKontaktziel(kontaktZiel_);
}

CTrackCurve& CNodeGleis::NewFormat() {
    if (!curve_)
        curve_ = std::make_unique<CTrackCurve>();
    return *curve_;
}

// Reads the children whose values the track keeps itself; they are not kept as nodes.
bool CNodeGleis::ConsumeChild(std::unique_ptr<INode>& child) {
    const std::string& name = child->Name();
    if (name == "KontaktZiel")
        return TakeKontaktZiel(*child);
    if (frame_.Offer(child, [this] { NoteOwnedChild(kDreibeinSlot); }))
        return true;
    if (child->SubNodes().Count() > 0)
        return false;
    if (auto* charakteristik = dynamic_cast<CNodeCharakteristik*>(child.get());
        charakteristik && name == "Charakteristik" && !hasCharakteristik_) {
        NoteOwnedChild(kCharakteristikSlot);
        kruemmung_ = charakteristik->Kruemmung();
        torsion_ = charakteristik->Torsion();
        fVerdreh_ = charakteristik->Fuehrungsverdrehung();
        laenge_ = charakteristik->Laenge();
        charakteristikAttributes_ = charakteristik->Attributes();
        hasCharakteristik_ = true;
        return true;
    }
    if (auto* anf = dynamic_cast<CNodeAnfFuehrVerdrehung*>(child.get());
        anf && name == "Anfangsfuehrungsverdrehung" && !hasAnf_) {
        NoteOwnedChild(kAnfSlot);
        anfFuehrVerdrehung_ = anf->Wert();
        anfFuehrAttributes_ = anf->Attributes();
        hasAnf_ = true;
        return true;
    }
    return false;
}

// Only a plain target (text only, the first one) is consumed; anything else is kept as read.
bool CNodeGleis::TakeKontaktZiel(const INode& child) {
    if (kontaktZielRead_ || !child.Attributes().Empty() || child.SubNodes().Count() != 0)
        return false;
    int32_t target = TextToLong(child.Text());
    if (!NumberTextReadsAs(child.Text(), target, true)) {
        ReportTextNotReadWhole(child.Name(), child.Text());
        return false;
    }
    NoteOwnedChild(kTargetSlot);
    SetReadKontaktZiel(target);
    return true;
}

} // namespace kavrin
