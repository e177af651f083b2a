#pragma once

#include <string>
#include <string_view>

#include "document/INode.h"

namespace kavrin {

// The text an attribute is written with: a class's own value in file format, else the kept text.
// Empty when the node has no such attribute.
std::string AttributeText(const INode& node, std::string_view name);
bool HasAttribute(const INode& node, std::string_view name);
// Sets the kept text of an attribute, appending it when the node has none of that name.
void SetAttributeText(INode& node, std::string_view name, std::string text);
// Appends an attribute name whose value the class owns, unless the node has it already.
void AddOwnedAttribute(INode& node, std::string_view name);

} // namespace kavrin
