#include "nodes/CNodeVektor.h"

#include <algorithm>
#include <pugixml.hpp>

#include "core/CStringPack.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"

namespace kavrin {

namespace {
const char kCoordinates[] = {'x', 'y', 'z'};

double Coordinate(const CVector& vector, char name) {
    return name == 'x' ? vector.X : name == 'y' ? vector.Y : vector.Z;
}
} // namespace

// The commonest element of a layout: its three numbers are read without an attribute store;
// the store is only made when the element carries something more.
bool CNodeVektor::ParseAttributes(const XmlElement& element) {
    for (pugi::xml_attribute attribute : element.attributes()) {
        std::string_view name = attribute.name();
        bool coordinate = name == "x" || name == "y" || name == "z";
        if (coordinate && !HasCoordinate(name[0])) {
            double value = TextToNumber(attribute.value());
            (name[0] == 'x' ? vector_.X : name[0] == 'y' ? vector_.Y : vector_.Z) = value;
            if (!FileNumberFits(value)) {
                ReportNumberKeptAsRead(Name(), name, attribute.value());
                KeepCoordinatesInStore();
                Attributes().Add(AttributeNames().PutString(name), attribute.value());
                continue;
            }
            if (!NumberTextReadsAs(attribute.value(), value, false)) {
                KeepCoordinatesInStore();
                Attributes().Add(AttributeNames().PutString(name),
                                 KeepNumberAsRead(Name(), name, attribute.value(), value));
                continue;
            }
            if (Attributes().Empty() && count_ < 3) {
                order_[count_++] = name[0];
                continue;
            }
            Attributes().Add(AttributeNames().PutString(name), kOwnedValue);
            continue;
        }
        AddParseHint(FormatMessage("Vektor enthält unerwartetes Attribut '%1'", name));
        KeepCoordinatesInStore();
        Attributes().Add(AttributeNames().PutString(name), attribute.value());
    }
    return true;
}

bool CNodeVektor::HasCoordinate(char name) const {
    for (uint8_t i = 0; i < count_; ++i)
        if (order_[i] == name)
            return true;
    return Attributes().Exists(AttributeNames().PutString(std::string_view(&name, 1)));
}

// Once another attribute turns up, the coordinates read so far keep their places in the store.
void CNodeVektor::KeepCoordinatesInStore() {
    if (!Attributes().Empty())
        return;
    for (uint8_t i = 0; i < count_; ++i)
        Attributes().Add(AttributeNames().PutString(std::string_view(&order_[i], 1)), kOwnedValue);
    count_ = 0;
}

void CNodeVektor::Copy(const INode& source) {
    CopyBaseContent(source);
    const auto* vektor = dynamic_cast<const CNodeVektor*>(&source);
    if (!vektor)
        return;
    vector_ = vektor->Vector();
    std::copy(std::begin(vektor->order_), std::end(vektor->order_), std::begin(order_));
    count_ = vektor->count_;
}

bool CNodeVektor::IsPlain() const {
    return count_ == 3 && order_[0] == 'x' && order_[1] == 'y' && order_[2] == 'z' && Attributes().Empty() &&
           SubNodes().Count() == 0;
}

// A child element cannot be understood inside a vector; it is named and kept as it is.
bool CNodeVektor::CheckNode() {
    for (const auto& child : SubNodes())
        if (child->RawMarkup().empty()) {
            AddParseHint(FormatMessage("Kann Subnodes von '%1' nicht verarbeiten", Name()));
            break;
        }
    return CNodeBase::CheckNode();
}

bool CNodeVektor::XmlAttributes(CXmlWriter& writer) {
    for (uint8_t i = 0; i < count_; ++i) {
        const char name[2] = {order_[i], '\0'};
        writer.PlainAttribute(name, NumberToText(XmlAttr(name)));
    }
    CNodeBase::XmlAttributes(writer);
    // A coordinate the file left out but an edit has given a value is written after the others.
    if (linked_)
        for (char name : kCoordinates)
            if (!HasCoordinate(name) && Coordinate(*linked_, name) != 0)
                writer.Attribute(std::string(1, name), NumberToText(Coordinate(*linked_, name)));
    return true;
}

Variant CNodeVektor::XmlAttr(std::string_view name) const {
    if (name != "x" && name != "y" && name != "z")
        return {};
    return Coordinate(Vector(), name[0]);
}

} // namespace kavrin
