#pragma once

#include <functional>
#include <span>

#include "core/CDictionary.h"
#include "document/CArrayOfNodes.h"
#include "document/CChildOrder.h"
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
    std::string_view CheckAttribute(std::string_view name, std::string_view value) override;

    CAnlage* Anlage() const override { return anlage_; }
    void SetAnlage(CAnlage* anlage) override { anlage_ = anlage; }

    const CDictionary& Attributes() const override { return attributes_; }
    CDictionary& Attributes() override { return attributes_; }
    const CArrayOfNodes& SubNodes() const override { return children_; }
    CArrayOfNodes& SubNodes() override { return children_; }

    const char* ClassName() const override { return "INode"; }

    bool TakeElement(const XmlElement&) override { return false; }
    std::string_view RawMarkup() const override { return {}; }
    bool WrittenAsPair() const override { return writtenAsPair_; }
    void SetWrittenAsPair(bool value) override { writtenAsPair_ = value; }

    // Copies attributes, text and (cloned) kept children of another node into this one.
    void CopyBaseContent(const INode& source);

    // The node is being read from a file: the order of its children is noted until its check.
    void BeginReading() { reading_ = true; }
    // Kept children taken out and put in at a place; a recorded order follows, and the place
    // TakeChild gives back puts the child back exactly where it stood.
    std::unique_ptr<INode> TakeChild(int32_t index, size_t* orderPlace = nullptr);
    void InsertChild(int32_t index, std::unique_ptr<INode> child, size_t orderPlace = CChildOrder::npos);
    // The same for many kept children at once (indices ascending), in one pass over them: the
    // children in that order, and the places of their entries in a recorded order.
    std::vector<std::unique_ptr<INode>> TakeChildren(const std::vector<int32_t>& indices,
                                                     std::vector<size_t>& orderPlaces);
    void InsertChildren(const std::vector<int32_t>& indices, std::vector<std::unique_ptr<INode>> children,
                        const std::vector<size_t>& orderPlaces);
    CChildOrder& ChildOrder() { return childOrder_; }
    const CChildOrder& ChildOrder() const { return childOrder_; }

protected:
    // The order in which the class writes its children by itself when the file told nothing
    // else: slots of its own and CChildOrder::kKept for the children kept as nodes.
    virtual std::span<const uint8_t> DefaultSlots() const;
    // How many children of a slot the node holds now, and writing the instance-th of them.
    virtual int OwnedChildCount(uint8_t) const { return 0; }
    // Whether anything is written inside the element besides its text.
    bool HasChildElements() const;
    virtual bool WriteOwnedChild(CXmlWriter&, uint8_t, int) { return true; }
    // A child of one of the class's own order was read; called before the class stores it.
    void NoteOwnedChild(uint8_t slot);
    // Reads an element's attributes into a store as ParseAttributes does: `take` keeps a
    // value of the class's own (true) or leaves it to be kept as text.
    static void ReadAttributes(const XmlElement& element, CDictionary& store,
                               const std::function<bool(std::string_view, std::string_view)>& take);
    bool Reading() const { return reading_; }
    // An owned attribute whose written value the class works out anew (a count of children):
    // its read text is not expected to come back.
    virtual bool WorkedOutOnWrite(std::string_view) const { return false; }

    // Reads a number the class keeps (kOwnedValue). One the file's number format cannot carry
    // stays as read, with a hint, and only its value goes into the field.
    std::string_view OwnNumber(std::string_view name, std::string_view value, double& field);
    // For classes that take no children: a hint and false when some arrived nevertheless.
    bool NoSubnodesAccepted();
    // Procedure name for error reports: class name, a point, the member.
    std::string Proc(std::string_view member) const;

private:
    void NoteChild(uint8_t slot);
    int32_t CountOf(uint8_t slot) const;
    void ListChildren(std::vector<uint8_t>& order) const;
    bool WriteInRecordedOrder(CXmlWriter& writer);
    bool WriteSlot(CXmlWriter& writer, uint8_t slot, int from, int to);

    int16_t nameIndex_ = 0;
    bool writtenAsPair_ = false;
    bool reading_ = false;
    CChildOrder childOrder_;
    std::string text_;
    INode* parent_ = nullptr;
    CAnlage* anlage_ = nullptr;
    CDictionary attributes_;
    CArrayOfNodes children_;
};

} // namespace kavrin
