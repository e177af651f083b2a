#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/modTools.h"

namespace pugi {
class xml_node;
}

namespace kavrin {

class CAnlage;
class CArrayOfNodes;
class CDictionary;
class CXmlWriter;

using XmlElement = pugi::xml_node;

// One element of a layout. Parsing fills a node from its DOM element (children are consumed
// from the DOM as they are read); writing streams it back through a CXmlWriter.
class INode {
public:
    virtual ~INode() = default;

    virtual const std::string& Name() const = 0;
    virtual void SetName(std::string_view name) = 0;
    virtual const std::string& Text() const = 0;
    virtual void SetText(std::string text) = 0;
    virtual INode* Parent() const = 0;
    virtual void SetParent(INode* parent) = 0;

    virtual bool ParseAttributes(const XmlElement& element) = 0;
    virtual bool ParseSubnodes(XmlElement& element) = 0;
    // Called after the node and its children were parsed.
    virtual bool CheckNode() = 0;

    virtual bool XmlAttributes(CXmlWriter& writer) = 0;
    // Current value of an attribute the class keeps in a typed field.
    virtual Variant XmlAttr(std::string_view name) const = 0;
    virtual bool XmlText(CXmlWriter& writer) = 0;
    virtual bool XmlChildren(CXmlWriter& writer) = 0;
    // Last hook before the element is closed.
    virtual bool XmlClose(CXmlWriter& writer) = 0;

    // Offers a parsed child. A class that keeps it takes it out of `child`; one that only reads
    // it (a vector, a connection) leaves it there and the caller releases it.
    virtual bool AddChild(std::unique_ptr<INode>& child) = 0;
    virtual void Clear() = 0;
    // The text to keep for an attribute; kOwnedValue when the class keeps it itself.
    virtual std::string_view CheckAttribute(std::string_view name, std::string_view value) = 0;

    virtual CAnlage* Anlage() const = 0;
    virtual void SetAnlage(CAnlage* anlage) = 0;

    virtual const CDictionary& Attributes() const = 0;
    virtual CDictionary& Attributes() = 0;
    virtual const CArrayOfNodes& SubNodes() const = 0;
    virtual CArrayOfNodes& SubNodes() = 0;

    // Class name used in error reports ("CNodeGleis").
    virtual const char* ClassName() const = 0;

    // Offered each child element before a node is made of it: a class that keeps such an
    // element in a compact form of its own reads it here and answers true. It declines (false)
    // whatever it cannot read in full; the element then becomes a node as usual.
    virtual bool TakeElement(const XmlElement& element) = 0;
    // Markup that is written exactly as read instead of as an element (a processing
    // instruction); empty for every element.
    virtual std::string_view RawMarkup() const = 0;
    // An empty element that the file wrote as "<X></X>" is written back so.
    virtual bool WrittenAsPair() const = 0;
    virtual void SetWrittenAsPair(bool value) = 0;
};

// Place holder kept in the attribute store for a value the class owns.
inline const std::string kOwnedValue(1, '\x0B');
// Leads the store entry of a number the class reads but that is not read whole (see KeptNumber).
inline constexpr char kKeptNumberMark = '\x0C';

} // namespace kavrin
