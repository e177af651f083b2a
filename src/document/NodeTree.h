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
// The two halves of ParseChildElement, for a reader that hands an element's children over in
// pieces: the node with its attributes (nullptr when they fail), and the hand-over to the
// parent with the node's check (`ok` = its children were read).
std::unique_ptr<INode> StartChildNode(INode& parent, const XmlElement& element);
bool FinishChildNode(INode& parent, std::unique_ptr<INode> node, bool ok);

// Counts one level of nesting while it lives; false from Allowed() beyond kMaxNestingDepth.
class NestingLevel {
public:
    NestingLevel();
    ~NestingLevel();
    NestingLevel(const NestingLevel&) = delete;
    NestingLevel& operator=(const NestingLevel&) = delete;
    static bool Allowed(const char* elementName);
};
// Appends a child the parent is meant to keep (built in code, not parsed).
void AppendChild(INode& parent, std::unique_ptr<INode> child);
// Writes a node as an element: attributes, text, children, close hook.
bool WriteNode(CXmlWriter& writer, INode& node);
// Visits node and all nodes below it, parents before children, without recursion.
void ForEachNode(const INode& node, const std::function<void(const INode&, int depth)>& visit);
// An element of the DOM as the writer would write it (when its text in the file is unknown).
std::string MarkupOf(const XmlElement& element);
// A deep copy of a node made of base content only (used to copy kept unknown children).
std::unique_ptr<INode> CloneNode(const INode& node);

} // namespace kavrin
