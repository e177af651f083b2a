#include "nodes/CNodeVektor.h"

#include <pugixml.hpp>

#include "document/NodeAttributes.h"

namespace kavrin {

bool CNodeVektor::ParseAttributes(const XmlElement& element) {
    bool allKnown = true;
    for (pugi::xml_attribute attribute : element.attributes()) {
        std::string_view name = attribute.name();
        double value = TextToNumber(attribute.value());
        if (name == "x")
            vector_.X = value;
        else if (name == "y")
            vector_.Y = value;
        else if (name == "z")
            vector_.Z = value;
        else {
            AddParseHint(FormatMessage("Vektor enthält unerwartetes Attribut '%1'", name));
            allKnown = false;
            continue;
        }
        // Kept in the store too, so a vector outside a frame is written back as it was read.
        AddOwnedAttribute(*this, name);
    }
    return allKnown;
}

Variant CNodeVektor::XmlAttr(std::string_view name) const {
    if (name == "x")
        return vector_.X;
    if (name == "y")
        return vector_.Y;
    if (name == "z")
        return vector_.Z;
    return {};
}

} // namespace kavrin
