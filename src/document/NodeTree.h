#pragma once

#include <functional>
#include <memory>

#include "document/INode.h"

namespace kavrin {

// Deepest nesting of elements a layout may have; real files nest fewer than twenty levels.
inline constexpr int kMaxNestingDepth = 500;

// The child walk: parses every child of element into parent, consuming the DOM as it goes.
bool ParseChildren(INode& parent, XmlElement& element);
// Parses one child element into a new node created by the factory and adds it to parent.
bool ParseChildElement(INode& parent, XmlElement& element);
// Appends a child the parent is meant to keep (built in code, not parsed).
void AppendChild(INode& parent, std::unique_ptr<INode> child);
// Writes a node as an element: attributes, text, children, close hook.
bool WriteNode(CXmlWriter& writer, INode& node);
// Visits node and all nodes below it, parents before children, without recursion.
void ForEachNode(const INode& node, const std::function<void(const INode&, int depth)>& visit);
// A deep copy of a node made of base content only (used to copy kept unknown children).
std::unique_ptr<INode> CloneNode(const INode& node);

} // namespace kavrin
