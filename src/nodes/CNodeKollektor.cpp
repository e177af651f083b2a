#include "nodes/CNodeKollektor.h"

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeGleis.h"
#include "nodes/LayoutLookup.h"
#include "nodes/modNodes.h"

namespace kavrin {

std::string_view CNodeKollektor::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "id")
        return value;
    id_ = TextToLong(value);
    return kOwnedValue;
}

Variant CNodeKollektor::XmlAttr(std::string_view name) const {
    return name == "id" ? Variant{id_} : Variant{};
}

namespace {
constexpr uint8_t kFrameSlot = 1;
} // namespace

std::span<const uint8_t> CNodeKollektor::DefaultSlots() const {
    static const uint8_t order[] = {kFrameSlot, kEntrySlot, CChildOrder::kKept};
    return order;
}

int CNodeKollektor::OwnedChildCount(uint8_t slot) const {
    if (slot == kEntrySlot)
        return static_cast<int>(gleise_.size());
    return slot == kFrameSlot && frame_.Present() ? 1 : 0;
}

bool CNodeKollektor::WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) {
    if (slot == kFrameSlot)
        return frame_.Write(writer);
    const CKollektorGleis& gleis = gleise_[static_cast<size_t>(instance)];
    writer.StartElement("Gleis");
    if (gleis.AsRead.empty()) {
        writer.Attribute("gleisID", std::to_string(gleis.GleisID));
        writer.Attribute("gleissystemID", std::to_string(gleis.GleissystemID));
    }
    for (const auto& [name, value] : gleis.AsRead)
        writer.Attribute(name, value);
    writer.EndElement();
    return true;
}

bool CNodeKollektor::TakeElement(const XmlElement& element) {
    return frame_.OfferElement(element, [this] { NoteOwnedChild(kFrameSlot); });
}

bool CNodeKollektor::AddChild(std::unique_ptr<INode>& child) {
    if (frame_.Offer(child, [this] { NoteOwnedChild(kFrameSlot); }))
        return true;
    if (child->Name() != "Gleis" || child->SubNodes().Count() > 0 || !child->Text().empty())
        return CNodeBase::AddChild(child);
    try {
        CKollektorGleis entry = ReadEntry(*child);
        NoteOwnedChild(kEntrySlot);
        gleise_.push_back(std::move(entry));
        return true;
    } catch (...) {
        // The entry's first attribute that does not read names the value.
        CError failure = CError::FromCurrentException();
        std::string attribute, value;
        for (CDictionary::Entry entry : child->Attributes().Entries()) {
            const std::string& name = AttributeNames().GetString(entry.key);
            int32_t number = 0;
            if ((name == "gleissystemID" || name == "gleisID") && !TryTextToLong(entry.value, number)) {
                attribute = name, value = entry.value;
                break;
            }
            if (name == "gleissystemID" && (number < INT16_MIN || number > INT16_MAX)) {
                attribute = name, value = entry.value;
                break;
            }
        }
        ReportError(Proc("INode_AddChild"), failure, BadValueText(*this, "Gleis", attribute, value, failure));
        return false;
    }
}

CKollektorGleis CNodeKollektor::ReadEntry(const INode& entry) const {
    CKollektorGleis gleis;
    bool usual = entry.Attributes().Count() == 2;
    int position = 0;
    for (CDictionary::Entry attribute : entry.Attributes().Entries()) {
        const std::string& name = AttributeNames().GetString(attribute.key);
        if (name == "gleissystemID") {
            gleis.GleissystemID = TextToInteger(attribute.value);
            usual = usual && position == 1 && attribute.value == std::to_string(gleis.GleissystemID);
        } else if (name == "gleisID") {
            gleis.GleisID = TextToLong(attribute.value);
            usual = usual && position == 0 && attribute.value == std::to_string(gleis.GleisID);
        } else {
            AddParseHint(FormatMessage("Unbekanntes Attribut '%1' im %2-Node", name, "Kollektor Gleis"));
        }
        ++position;
    }
    if (!usual)
        for (CDictionary::Entry attribute : entry.Attributes().Entries())
            gleis.AsRead.emplace_back(AttributeNames().GetString(attribute.key), attribute.value);
    return gleis;
}

void CNodeKollektor::RestoreGleise(const RemovedEntries& removed) {
    std::vector<CKollektorGleis> merged;
    merged.reserve(gleise_.size() + removed.entries.size());
    size_t old = 0, back = 0;
    while (old < gleise_.size() || back < removed.entries.size()) {
        if (back < removed.entries.size() &&
            (static_cast<size_t>(removed.indices[back]) == merged.size() || old >= gleise_.size()))
            merged.push_back(removed.entries[back++]);
        else
            merged.push_back(std::move(gleise_[old++]));
    }
    gleise_ = std::move(merged);
    ChildOrder().RestoreMany(removed.orderPlaces, kEntrySlot);
}

bool CNodeKollektor::CheckNode() {
    if (Anlage())
        for (const CKollektorGleis& gleis : gleise_)
            if (CNodeGleis* track = FindGleis(*Anlage(), gleis.GleissystemID, gleis.GleisID))
                track->SetKollektor(this);
    return CNodeBase::CheckNode();
}

} // namespace kavrin
