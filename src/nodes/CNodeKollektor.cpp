#include "nodes/CNodeKollektor.h"

#include "core/CStringPack.h"
#include "document/CAnlage.h"
#include "document/CXmlWriter.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleis.h"
#include "nodes/LayoutLookup.h"
#include "nodes/modNodes.h"

namespace kavrin {

std::string CNodeKollektor::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != "id")
        return std::string(value);
    id_ = TextToLong(value);
    return kOwnedValue;
}

Variant CNodeKollektor::XmlAttr(std::string_view name) const {
    return name == "id" ? Variant{id_} : Variant{};
}

bool CNodeKollektor::AddChild(std::unique_ptr<INode>& child) {
    const std::string& name = child->Name();
    if (auto* dreibein = dynamic_cast<CNodeDreibein*>(child.get()); dreibein && name == "Dreibein") {
        frame_.grab3Bein(*dreibein);
        hasFrame_ = true;
        return true;
    }
    if (name != "Gleis" || child->SubNodes().Count() > 0)
        return CNodeBase::AddChild(child);
    try {
        gleise_.push_back(ReadEntry(*child));
        return true;
    } catch (...) {
        ReportCurrentError(Proc("INode_AddChild"));
        return false;
    }
}

CKollektorGleis CNodeKollektor::ReadEntry(const INode& entry) const {
    CKollektorGleis gleis;
    for (const CDictionary::Entry& attribute : entry.Attributes().Entries()) {
        const std::string& name = AttributeNames().GetString(attribute.key);
        if (name == "gleissystemID")
            gleis.GleissystemID = TextToInteger(attribute.value);
        else if (name == "gleisID")
            gleis.GleisID = TextToLong(attribute.value);
        else {
            AddParseHint(FormatMessage("Unbekanntes Attribut '%1' im %2-Node", name, "Kollektor Gleis"));
            gleis.Extra.emplace_back(name, attribute.value);
        }
    }
    return gleis;
}

bool CNodeKollektor::XmlChildren(CXmlWriter& writer) {
    if (hasFrame_ && !WriteDreibein(writer, frame_))
        return false;
    for (const CKollektorGleis& gleis : gleise_) {
        writer.StartElement("Gleis");
        writer.Attribute("gleisID", std::to_string(gleis.GleisID));
        writer.Attribute("gleissystemID", std::to_string(gleis.GleissystemID));
        for (const auto& [name, value] : gleis.Extra)
            writer.Attribute(name, value);
        writer.EndElement();
    }
    return CNodeBase::XmlChildren(writer);
}

bool CNodeKollektor::CheckNode() {
    if (Anlage())
        for (const CKollektorGleis& gleis : gleise_)
            if (CNodeGleis* track = FindGleis(*Anlage(), gleis.GleissystemID, gleis.GleisID))
                track->SetKollektor(this);
    return CNodeBase::CheckNode();
}

} // namespace kavrin
