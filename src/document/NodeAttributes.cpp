#include "document/NodeAttributes.h"

#include "core/CDictionary.h"
#include "core/CStringPack.h"

namespace kavrin {

std::string AttributeText(const INode& node, std::string_view name) {
    int16_t key = AttributeNames().GetIndex(name);
    const std::string* value = key ? node.Attributes().Item(key) : nullptr;
    if (!value)
        return {};
    return *value == kOwnedValue ? NumberToText(node.XmlAttr(name)) : *value;
}

bool HasAttribute(const INode& node, std::string_view name) {
    int16_t key = AttributeNames().GetIndex(name);
    return key && node.Attributes().Exists(key);
}

void SetAttributeText(INode& node, std::string_view name, std::string text) {
    int16_t key = AttributeNames().PutString(name);
    if (std::string* value = node.Attributes().Item(key))
        *value = std::move(text);
    else
        node.Attributes().Add(key, std::move(text));
}

void AddOwnedAttribute(INode& node, std::string_view name) {
    int16_t key = AttributeNames().PutString(name);
    if (!node.Attributes().Exists(key))
        node.Attributes().Add(key, kOwnedValue);
}

} // namespace kavrin
