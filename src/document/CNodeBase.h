#pragma once

#include "core/CDictionary.h"
#include "document/CArrayOfNodes.h"
#include "document/INode.h"

namespace kavrin {

// The default behaviour every node class builds on: name, text, attributes in file order,
// children and parent. Node classes override what they handle and leave the rest here, so
// unknown attributes and children survive a load and save unchanged.
class CNodeBase : public INode {
public:
    CNodeBase() = default;
    CNodeBase(const CNodeBase&) = delete;
    CNodeBase& operator=(const CNodeBase&) = delete;

    const std::string& Name() const override;
    void SetName(std::string_view name) override;
    int16_t NameIndex() const { return nameIndex_; }
    void SetNameIndex(int16_t index) { nameIndex_ = index; }
    const std::string& Text() const override { return text_; }
    void SetText(std::string text) override { text_ = std::move(text); }
    INode* Parent() const override { return parent_; }
    void SetParent(INode* parent) override { parent_ = parent; }

    bool ParseAttributes(const XmlElement& element) override;
    bool ParseSubnodes(XmlElement& element) override;
    bool CheckNode() override;

    bool XmlAttributes(CXmlWriter& writer) override;
    Variant XmlAttr(std::string_view name) const override;
    bool XmlText(CXmlWriter& writer) override;
    bool XmlChildren(CXmlWriter& writer) override;
    bool XmlClose(CXmlWriter& writer) override;

    bool AddChild(std::unique_ptr<INode>& child) override;
    void Clear() override;
    std::string CheckAttribute(std::string_view name, std::string_view value) override;

    CAnlage* Anlage() const override { return anlage_; }
    void SetAnlage(CAnlage* anlage) override { anlage_ = anlage; }

    const CDictionary& Attributes() const override { return attributes_; }
    CDictionary& Attributes() override { return attributes_; }
    const CArrayOfNodes& SubNodes() const override { return children_; }
    CArrayOfNodes& SubNodes() override { return children_; }

    const char* ClassName() const override { return "INode"; }

    // Copies attributes, text and (cloned) kept children of another node into this one.
    void CopyBaseContent(const INode& source);

protected:
    // For classes that take no children: a hint and false when some arrived nevertheless.
    bool NoSubnodesAccepted();
    // Procedure name for error reports: class name, a point, the member.
    std::string Proc(std::string_view member) const;

private:
    int16_t nameIndex_ = 0;
    std::string text_;
    INode* parent_ = nullptr;
    CAnlage* anlage_ = nullptr;
    CDictionary attributes_;
    CArrayOfNodes children_;
};

} // namespace kavrin
