#include "nodes/CNodeGleisOrt.h"

namespace kavrin {

std::string_view CNodeGleisOrt::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "gleissystemID")
        gleissystemId_ = TextToInteger(value);
    else if (name == "gleisID")
        gleisId_ = TextToLong(value);
    else if (name == "parameter")
        return OwnNumber(name, value, parameter_);
    else if (name == "ausrichtung")
        ausrichtung_ = TextToInteger(value);
    else
        return value;
    return kOwnedValue;
}

Variant CNodeGleisOrt::XmlAttr(std::string_view name) const {
    if (name == "gleissystemID")
        return gleissystemId_;
    if (name == "gleisID")
        return gleisId_;
    if (name == "parameter")
        return parameter_;
    if (name == "ausrichtung")
        return ausrichtung_;
    return {};
}

} // namespace kavrin
