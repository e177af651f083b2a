#include "nodes/CNodeVektor.h"

#include <pugixml.hpp>

#include "document/CXmlWriter.h"

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
        if (count_ < 3)
            order_[count_++] = name[0];
    }
    return allKnown;
}

bool CNodeVektor::XmlAttributes(CXmlWriter& writer) {
    for (uint8_t i = 0; i < count_; ++i) {
        const char name[2] = {order_[i], '\0'};
        writer.Attribute(name, NumberToText(XmlAttr(name)));
    }
    return CNodeBase::XmlAttributes(writer);
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
