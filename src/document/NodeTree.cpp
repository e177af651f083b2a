#include "document/NodeTree.h"

#include <cstring>
#include <pugixml.hpp>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/CStringPack.h"
#include "core/IUserInterface.h"
#include "document/CAnlage.h"
#include "document/CNodeFactory.h"
#include "document/CNodeRaw.h"
#include "document/CNodeUnknown.h"
#include "document/CParseSource.h"
#include "document/CXmlWriter.h"
#include "document/FParseLog.h"
#include "document/ICopy.h"
#include "document/NodeAttributes.h"

namespace kavrin {

namespace {

thread_local int gDepth = 0;

// The node kind as an XML DOM names it.
const char* NodeKindName(pugi::xml_node_type type) {
    switch (type) {
    case pugi::node_comment:
        return "comment";
    case pugi::node_cdata:
        return "cdatasection";
    case pugi::node_doctype:
        return "documenttype";
    case pugi::node_declaration:
        return "xmldecl";
    case pugi::node_pi:
        return "processinginstruction";
    default:
        return "unknown";
    }
}

bool ReportUnexpectedEntry(const pugi::xml_node& node) {
    AddParseHint(FormatMessage("Unerwarteter Eintrag in .anl3 Datei!%n") +
                 FormatMessage("Node-Typ:  %1%nNode-Text: %2", NodeKindName(node.type()), node.value()));
    return false;
}

// The layout records every instruction; the instruction itself stays where it stood.
bool HandleProcessingInstruction(INode& parent, const pugi::xml_node& node) {
    if (CAnlage* anlage = parent.Anlage())
        anlage->AddProcInstr(node.name(), node.value());
    std::string_view raw;
    if (const CParseSource* source = CParseSource::Current())
        raw = source->RawInstruction(node);
    std::string markup =
        raw.empty() ? ProcessingInstructionText(node.name(), node.value()) : std::string(raw);
    auto kept = std::make_unique<CNodeRaw>(std::move(markup));
    kept->SetName(std::string("?") + node.name());
    kept->SetAnlage(parent.Anlage());
    AppendChild(parent, std::move(kept));
    return true;
}

// An element's text, when it is all its content or comes first, is its Text (written before its
// children). Text after a child, or a second text, stays where it stands among the children.
bool HandleText(INode& parent, const pugi::xml_node& node, bool first) {
    if (first && parent.SubNodes().Count() == 0 && parent.Text().empty()) {
        parent.SetText(node.value());
        return true;
    }
    auto kept = std::make_unique<CNodeRaw>(EscapedTextAmongElements(node.value()));
    kept->SetName("#text");
    kept->SetAnlage(parent.Anlage());
    AppendChild(parent, std::move(kept));
    return true;
}

bool ParseChildNode(INode& parent, pugi::xml_node& node, bool first) {
    switch (node.type()) {
    case pugi::node_element:
        return ParseChildElement(parent, node);
    case pugi::node_pcdata:
        return HandleText(parent, node, first);
    case pugi::node_pi:
        return HandleProcessingInstruction(parent, node);
    default:
        return ReportUnexpectedEntry(node);
    }
}

} // namespace

bool ParseChildren(INode& parent, XmlElement& element) {
    FParseLog& log = UI().ParseLog();
    // The DOM is consumed while the tree grows, so both never hold a large layout in full; a
    // file read in pieces frees each piece's DOM whole instead.
    bool consume = CParseSource::Current() == nullptr;
    pugi::xml_node child = element.first_child();
    bool first = true;
    while (child) {
        UI().ProcessPendingEvents();
        if (log.Cancelled())
            return false;
        if (!ParseChildNode(parent, child, first))
            return false;
        first = false;
        pugi::xml_node next = child.next_sibling();
        if (consume)
            element.remove_child(child);
        child = next;
    }
    return true;
}

NestingLevel::NestingLevel() {
    ++gDepth;
}

NestingLevel::~NestingLevel() {
    --gDepth;
}

bool NestingLevel::Allowed(const char* elementName) {
    if (gDepth < kMaxNestingDepth)
        return true;
    ReportTooDeep(elementName);
    return false;
}

void NestingLevel::ReportTooDeep(const char* elementName) {
    AddParseHint(FormatMessage("Die Elemente der Datei sind tiefer als %1 Ebenen verschachtelt;%n"
                               "so ist keine Anlage aufgebaut. '%2' wird nicht mehr gelesen.",
                               kMaxNestingDepth, elementName));
}

bool ForEachBelow(const XmlElement& top, int depth,
                  const std::function<bool(const XmlElement&, int)>& visit) {
    pugi::xml_node node = top.first_child();
    while (node) {
        if (!visit(node, depth))
            return false;
        if (pugi::xml_node child = node.first_child()) {
            node = child;
            ++depth;
            continue;
        }
        while (node != top && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        if (node == top)
            break;
        node = node.next_sibling();
    }
    return true;
}

namespace {
// FNV-1a over a zero-terminated name.
uint32_t NameHash(const char* name) {
    uint32_t hash = 2166136261u;
    for (; *name; ++name)
        hash = (hash ^ static_cast<unsigned char>(*name)) * 16777619u;
    return hash;
}
} // namespace

// Every element of a file passes here, so the test is a small hash table on the stack; names
// are compared only when their hashes meet. An element with very many attributes takes a set.
pugi::xml_attribute RepeatedAttribute(const XmlElement& element) {
    pugi::xml_attribute first = element.first_attribute();
    if (!first || !first.next_attribute())
        return {};
    constexpr size_t kNames = 32;
    constexpr size_t kSlots = 2 * kNames;
    uint8_t slots[kSlots] = {}; // 0: empty, else 1 + the index of the name
    const char* names[kNames];
    uint32_t hashes[kNames];
    size_t count = 0;
    for (pugi::xml_attribute a = first; a; a = a.next_attribute()) {
        if (count == kNames) {
            std::unordered_set<std::string_view> seen;
            for (pugi::xml_attribute b = first; b; b = b.next_attribute())
                if (!seen.insert(b.name()).second)
                    return b;
            return {};
        }
        const char* name = a.name();
        uint32_t hash = NameHash(name);
        size_t at = hash & (kSlots - 1);
        for (; slots[at]; at = (at + 1) & (kSlots - 1)) {
            size_t other = slots[at] - 1u;
            if (hashes[other] == hash && std::strcmp(names[other], name) == 0)
                return a;
        }
        names[count] = name;
        hashes[count] = hash;
        slots[at] = static_cast<uint8_t>(++count);
    }
    return {};
}

bool ScreenElements(XmlElement& top, int depth, CAnlage* anlage, bool& repaired) {
    return ForEachBelow(top, depth, [anlage, &repaired](const pugi::xml_node& node, int level) {
        if (node.type() != pugi::node_element)
            return true;
        if (level > kMaxNestingDepth) {
            NestingLevel::ReportTooDeep(node.name());
            return false;
        }
        pugi::xml_node element = node;
        if (element.first_attribute() && DropRepeatedAttributes(element, anlage) > 0)
            repaired = true;
        return true;
    });
}

std::string RepeatedAttributeProblem(const XmlElement& element, const pugi::xml_attribute& repeated) {
    return FormatMessage("das Attribut '%1' steht mehrfach im Element '%2'", repeated.name(), element.name());
}

size_t DropRepeatedAttributes(XmlElement& element, CAnlage* anlage) {
    size_t dropped = 0;
    while (pugi::xml_attribute repeated = RepeatedAttribute(element)) {
        AddParseHint(FormatMessage(
            "Das Attribut '%1' steht mehrfach im Element '%2'; es gilt das erste (\"%3\"),%n"
            "das weitere (\"%4\") wird verworfen.",
            repeated.name(), element.name(), element.attribute(repeated.name()).value(), repeated.value()));
        element.remove_attribute(repeated);
        ++dropped;
    }
    if (dropped > 0 && anlage)
        anlage->SetChangedWhileLoading();
    return dropped;
}

std::unique_ptr<INode> StartChildNode(INode& parent, const XmlElement& element) {
    int16_t nameIndex = ElementNames().PutString(element.name());
    std::unique_ptr<INode> node = CNodeFactory::Create(nameIndex, parent.Name());
    node->SetParent(&parent);
    node->SetAnlage(parent.Anlage());
    if (auto* base = dynamic_cast<CNodeBase*>(node.get())) {
        base->SetNameIndex(nameIndex);
        base->BeginReading();
    } else {
        node->SetName(element.name());
    }
    if (!element.first_child())
        if (const CParseSource* source = CParseSource::Current(); source && source->WrittenAsPair(element))
            node->SetWrittenAsPair(true);
    if (!node->ParseAttributes(element))
        return nullptr;
    return node;
}

bool FinishChildNode(INode& parent, std::unique_ptr<INode> node, bool ok) {
    INode* added = node.get();
    // The parent may keep the node or only read it; in the latter case it dies with `node`.
    // A parent that cannot take the child (an unreadable value in it) fails the element.
    bool taken = parent.AddChild(node);
    if (ok)
        ok = taken && added->CheckNode();
    return ok;
}

bool ParseChildElement(INode& parent, XmlElement& element) {
    if (!NestingLevel::Allowed(element.name()))
        return false;
    NestingLevel level;
    if (parent.TakeElement(element))
        return true;
    std::unique_ptr<INode> node = StartChildNode(parent, element);
    if (!node)
        return false;
    bool ok = node->ParseSubnodes(element);
    return FinishChildNode(parent, std::move(node), ok);
}

void AppendChild(INode& parent, std::unique_ptr<INode> child) {
    child->SetParent(&parent);
    parent.AddChild(child);
}

bool WriteNode(CXmlWriter& writer, INode& node) {
    if (std::string_view raw = node.RawMarkup(); !raw.empty()) {
        writer.Raw(raw);
        return true;
    }
    writer.StartElement(node.Name());
    bool ok = node.XmlAttributes(writer);
    if (ok)
        ok = node.XmlText(writer);
    if (ok)
        ok = node.XmlChildren(writer);
    if (ok)
        ok = node.XmlClose(writer);
    if (node.WrittenAsPair())
        writer.EndStartTag();
    writer.EndElement();
    return ok;
}

void ForEachNode(const INode& node, const std::function<void(const INode&, int depth)>& visit) {
    struct Pending {
        const INode* node;
        int depth;
    };
    std::vector<Pending> stack{{&node, 0}};
    while (!stack.empty()) {
        Pending current = stack.back();
        stack.pop_back();
        visit(*current.node, current.depth);
        const CArrayOfNodes& children = current.node->SubNodes();
        for (int32_t i = children.LastIndex(); i >= 0; --i)
            stack.push_back({children.Item(i), current.depth + 1});
    }
}

namespace {
void WriteDomElement(CXmlWriter& writer, const pugi::xml_node& element) {
    writer.StartElement(element.name());
    for (pugi::xml_attribute attribute : element.attributes())
        writer.Attribute(attribute.name(), attribute.value());
    for (pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_element)
            WriteDomElement(writer, child);
        else if (child.type() == pugi::node_pcdata)
            writer.Text(child.value());
        else if (child.type() == pugi::node_pi)
            writer.ProcessingInstruction(child.name(), child.value());
    }
    writer.EndElement();
}
} // namespace

std::string MarkupOf(const XmlElement& element) {
    CXmlWriter writer;
    WriteDomElement(writer, element);
    return writer.Result();
}

std::unique_ptr<INode> CloneNode(const INode& node) {
    if (const auto* copyable = dynamic_cast<const ICopy*>(&node))
        return copyable->Clone();
    auto copy = std::make_unique<CNodeUnknown>();
    copy->CopyBaseContent(node);
    // A class's own values become plain text in a copy that no longer knows them.
    for (CDictionary::Entry entry : node.Attributes().Entries())
        if (entry.value == kOwnedValue || IsKeptNumber(entry.value))
            copy->Attributes().Set(entry.key, AttributeText(node, AttributeNames().GetString(entry.key)));
    return copy;
}

} // namespace kavrin
