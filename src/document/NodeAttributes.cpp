#include "document/NodeAttributes.h"

#include "core/CDictionary.h"
#include "core/CStringPack.h"

namespace kavrin {

std::string AttributeText(const INode& node, std::string_view name) {
    int16_t key = AttributeNames().GetIndex(name);
    std::optional<std::string_view> value = key ? node.Attributes().Item(key) : std::nullopt;
    if (!value)
        return {};
    return *value == kOwnedValue ? NumberToText(node.XmlAttr(name)) : std::string(*value);
}

bool HasAttribute(const INode& node, std::string_view name) {
    int16_t key = AttributeNames().GetIndex(name);
    return key && node.Attributes().Exists(key);
}

void SetAttributeText(INode& node, std::string_view name, std::string text) {
    int16_t key = AttributeNames().PutString(name);
    if (!node.Attributes().Set(key, text))
        node.Attributes().Add(key, text);
}

void AddOwnedAttribute(INode& node, std::string_view name) {
    int16_t key = AttributeNames().PutString(name);
    if (!node.Attributes().Exists(key))
        node.Attributes().Add(key, kOwnedValue);
}

} // namespace kavrin
