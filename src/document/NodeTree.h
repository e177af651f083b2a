#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "document/INode.h"

namespace pugi {
class xml_attribute;
}

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
    // The hint that `elementName` lies too deep; the load stops there.
    static void ReportTooDeep(const char* elementName);
};

// Visits every node below `top` in document order with its nesting depth (top's children have
// `depth`); stops at the first visit that answers false, and answers false then.
bool ForEachBelow(const XmlElement& top, int depth, const std::function<bool(const XmlElement&, int)>& visit);
// The first attribute of an element whose name an earlier attribute of it has already.
pugi::xml_attribute RepeatedAttribute(const XmlElement& element);
// Keeps the first of each attribute name and removes the repeats, each named in a hint; a
// repair that makes the layout count as changed. The number removed.
size_t DropRepeatedAttributes(XmlElement& element, CAnlage* anlage);
// Before the elements below `top` (its children at `depth`) are read: repeated attributes are
// dropped (`repaired`), and elements nested too deep are refused with a hint (false).
bool ScreenElements(XmlElement& top, int depth, CAnlage* anlage, bool& repaired);
// "das Attribut 'x' steht mehrfach im Element 'Vektor'"
std::string RepeatedAttributeProblem(const XmlElement& element, const pugi::xml_attribute& repeated);
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
