#include "document/CNodeBase.h"

#include <pugixml.hpp>

#include "core/CStringPack.h"
#include "document/CXmlWriter.h"
#include "document/NodeTree.h"

namespace kavrin {

namespace {
bool IsLargeCollection(std::string_view name) {
    return name == "Gleissystem" || name == "Gebaeudesammlung";
}
} // namespace

const std::string& CNodeBase::Name() const {
    return ElementNames().GetString(nameIndex_);
}

void CNodeBase::SetName(std::string_view name) {
    nameIndex_ = ElementNames().PutString(name);
}

bool CNodeBase::ParseAttributes(const XmlElement& element) {
    try {
        size_t count = 0;
        for (pugi::xml_attribute attribute = element.first_attribute(); attribute;
             attribute = attribute.next_attribute())
            ++count;
        attributes_.Reserve(count);
        for (pugi::xml_attribute attribute : element.attributes()) {
            // Names are kept with any prefix, so namespace declarations survive a save.
            std::string_view name = attribute.name();
            std::string kept = CheckAttribute(name, attribute.value());
            attributes_.Add(AttributeNames().PutString(name), std::move(kept));
        }
        return true;
    } catch (...) {
        ReportCurrentError(std::string(ClassName()) + ".INode_ParseAttributes");
        return false;
    }
}

bool CNodeBase::ParseSubnodes(XmlElement& element) {
    if (!element.first_child())
        return true;
    return ParseChildren(*this, element);
}

bool CNodeBase::CheckNode() {
    children_.Freeze();
    return true;
}

bool CNodeBase::XmlAttributes(CXmlWriter& writer) {
    for (const CDictionary::Entry& entry : attributes_.Entries()) {
        const std::string& name = AttributeNames().GetString(entry.key);
        if (entry.value == kOwnedValue)
            writer.Attribute(name, NumberToText(XmlAttr(name)));
        else
            writer.Attribute(name, entry.value);
    }
    return true;
}

Variant CNodeBase::XmlAttr(std::string_view) const {
    return {};
}

bool CNodeBase::XmlText(CXmlWriter& writer) {
    if (!text_.empty())
        writer.Text(text_);
    return true;
}

bool CNodeBase::XmlChildren(CXmlWriter& writer) {
    for (const auto& child : children_)
        if (!WriteNode(writer, *child))
            return false;
    return true;
}

bool CNodeBase::XmlClose(CXmlWriter&) {
    return true;
}

bool CNodeBase::AddChild(std::unique_ptr<INode>& child) {
    if (children_.UpperBound() < 0) {
        if (IsLargeCollection(Name()))
            children_.Size(500, 500);
        else
            children_.Size(5, 10);
    }
    children_.Add(std::move(child));
    return true;
}

void CNodeBase::Clear() {
    for (const auto& child : children_)
        child->Clear();
    children_.RemoveAll();
    attributes_.Clear();
}

std::string CNodeBase::CheckAttribute(std::string_view, std::string_view value) {
    return std::string(value);
}

void CNodeBase::CopyBaseContent(const INode& source) {
    SetName(source.Name());
    text_ = source.Text();
    attributes_.Clear();
    for (const CDictionary::Entry& entry : source.Attributes().Entries())
        attributes_.Add(entry.key, entry.value);
    children_.RemoveAll();
    for (const auto& child : source.SubNodes()) {
        auto copy = CloneNode(*child);
        copy->SetParent(this);
        copy->SetAnlage(Anlage());
        AddChild(copy);
    }
}

bool CNodeBase::NoSubnodesAccepted() {
    if (children_.Count() == 0)
        return true;
    AddParseHint(FormatMessage("Kann Subnodes von '%1' nicht verarbeiten", Name()));
    return false;
}

std::string CNodeBase::Proc(std::string_view member) const {
    return std::string(ClassName()) + "." + std::string(member);
}

} // namespace kavrin
