#include "document/CNodeBase.h"

#include <pugixml.hpp>
#include <utility>

#include "core/CError.h"
#include "core/CStringPack.h"
#include "document/CXmlWriter.h"
#include "document/NodeAttributes.h"
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
    // The attribute being checked, for the report of a value the class cannot read.
    std::string_view checked, checkedValue;
    try {
        // Names and values are measured once; the store is made to fit them in one go.
        thread_local std::vector<std::pair<std::string_view, std::string_view>> read;
        read.clear();
        size_t bytes = 0;
        for (pugi::xml_attribute attribute : element.attributes()) {
            read.emplace_back(attribute.name(), attribute.value());
            bytes += read.back().second.size();
        }
        attributes_.Reserve(read.size(), bytes);
        for (const auto& [name, value] : read) {
            // Names are kept with any prefix, so namespace declarations survive a save.
            checked = name, checkedValue = value;
            std::string_view kept = CheckAttribute(name, value);
            int16_t key = AttributeNames().PutString(name);
            if (kept == kOwnedValue && !WorkedOutOnWrite(name)) {
                // A number the class cannot give back as its text stays as read.
                Variant read = XmlAttr(name);
                if (!ReadWhole(value, read)) {
                    checked = checkedValue = {};
                    attributes_.Add(key, KeepNumberAsRead(element.name(), name, value, read));
                    continue;
                }
            }
            checked = checkedValue = {};
            attributes_.Add(key, kept);
        }
        return true;
    } catch (...) {
        std::string procedure = Proc("INode_ParseAttributes");
        if (checked.empty())
            ReportCurrentError(procedure,
                               FormatMessage("Die Anlage kann nicht geladen werden:%nDas Element '%1' "
                                             "kann nicht gelesen werden.",
                                             element.name()));
        else
            ReportBadValue(procedure, Parent() ? *Parent() : static_cast<const INode&>(*this), element.name(),
                           checked, checkedValue,
                           NameIs(element.name(), "Gleis") && checked != "GleisID"
                               ? element.attribute("GleisID").value()
                               : "");
        return false;
    }
}

void CNodeBase::ReadAttributes(const XmlElement& element, CDictionary& store,
                               const std::function<bool(std::string_view, std::string_view)>& take) {
    for (pugi::xml_attribute attribute : element.attributes()) {
        std::string_view name = attribute.name();
        int16_t key = AttributeNames().PutString(name);
        if (take(name, attribute.value()))
            store.Add(key, kOwnedValue);
        else
            store.Add(key, attribute.value());
    }
}

bool CNodeBase::ParseSubnodes(XmlElement& element) {
    if (!element.first_child())
        return true;
    return ParseChildren(*this, element);
}

bool CNodeBase::CheckNode() {
    children_.Freeze();
    reading_ = false;
    return true;
}

bool CNodeBase::XmlAttributes(CXmlWriter& writer) {
    for (CDictionary::Entry entry : attributes_.Entries()) {
        const std::string& name = AttributeNames().GetString(entry.key);
        if (entry.value == kOwnedValue) {
            Variant value = XmlAttr(name);
            if (std::holds_alternative<std::string>(value))
                writer.Attribute(name, std::get<std::string>(value));
            else
                writer.PlainAttribute(name, NumberToText(value));
        } else if (IsKeptNumber(entry.value)) {
            writer.Attribute(name, KeptNumberText(entry.value, XmlAttr(name)));
        } else {
            writer.Attribute(name, entry.value);
        }
    }
    return true;
}

Variant CNodeBase::XmlAttr(std::string_view) const {
    return {};
}

bool CNodeBase::XmlText(CXmlWriter& writer) {
    if (text_.empty())
        return true;
    if (HasChildElements())
        writer.Raw(EscapedTextAmongElements(text_));
    else
        writer.Text(text_);
    return true;
}

bool CNodeBase::HasChildElements() const {
    if (SubNodes().Count() > 0)
        return true;
    for (uint8_t slot : DefaultSlots())
        if (OwnedChildCount(slot) > 0)
            return true;
    return false;
}

std::span<const uint8_t> CNodeBase::DefaultSlots() const {
    static const uint8_t order[] = {CChildOrder::kKept};
    return order;
}

// Children of one slot, instances [from, to).
bool CNodeBase::WriteSlot(CXmlWriter& writer, uint8_t slot, int from, int to) {
    for (int i = from; i < to; ++i) {
        bool ok = slot == CChildOrder::kKept ? WriteNode(writer, *children_.Item(i))
                                             : WriteOwnedChild(writer, slot, i);
        if (!ok)
            return false;
    }
    return true;
}

int32_t CNodeBase::CountOf(uint8_t slot) const {
    return slot == CChildOrder::kKept ? children_.Count() : OwnedChildCount(slot);
}

bool CNodeBase::XmlChildren(CXmlWriter& writer) {
    if (childOrder_.Recorded())
        return WriteInRecordedOrder(writer);
    for (uint8_t slot : DefaultSlots())
        if (!WriteSlot(writer, slot, 0, CountOf(slot)))
            return false;
    return true;
}

// As read; what came in later (or is left over) follows in the class's own order.
bool CNodeBase::WriteInRecordedOrder(CXmlWriter& writer) {
    std::span<const uint8_t> order = DefaultSlots();
    std::vector<int> written(256, 0);
    for (uint8_t slot : childOrder_.Entries()) {
        int instance = written[slot];
        if (instance >= CountOf(slot))
            continue;
        if (!WriteSlot(writer, slot, instance, instance + 1))
            return false;
        written[slot] = instance + 1;
    }
    for (uint8_t slot : order)
        if (!WriteSlot(writer, slot, written[slot], CountOf(slot)))
            return false;
    return true;
}

void CNodeBase::NoteOwnedChild(uint8_t slot) {
    if (reading_)
        NoteChild(slot);
}

void CNodeBase::NoteChild(uint8_t slot) {
    childOrder_.Note(slot, DefaultSlots(), [this](std::vector<uint8_t>& order) { ListChildren(order); });
}

// What the node holds, in the order it would write it.
void CNodeBase::ListChildren(std::vector<uint8_t>& order) const {
    for (uint8_t slot : DefaultSlots())
        order.insert(order.end(), static_cast<size_t>(CountOf(slot)), slot);
}

std::unique_ptr<INode> CNodeBase::TakeChild(int32_t index, size_t* orderPlace) {
    std::unique_ptr<INode> child = children_.Remove(index);
    size_t place = childOrder_.Removed(CChildOrder::kKept, index);
    if (orderPlace)
        *orderPlace = place;
    return child;
}

void CNodeBase::InsertChild(int32_t index, std::unique_ptr<INode> child, size_t orderPlace) {
    child->SetParent(this);
    children_.Insert(index, std::move(child));
    if (orderPlace != CChildOrder::npos)
        childOrder_.Restore(orderPlace, CChildOrder::kKept);
    else
        childOrder_.Inserted(CChildOrder::kKept, index);
}

std::vector<std::unique_ptr<INode>> CNodeBase::TakeChildren(const std::vector<int32_t>& indices,
                                                            std::vector<size_t>& orderPlaces) {
    for (size_t i = 0; i < indices.size(); ++i)
        if (indices[i] < 0 || indices[i] > children_.LastIndex() || (i > 0 && indices[i] <= indices[i - 1]))
            throw CError::SubscriptOutOfRange();
    std::vector<std::unique_ptr<INode>> taken;
    taken.reserve(indices.size());
    for (int32_t index : indices)
        taken.push_back(children_.Replace(index, nullptr));
    children_.Compact(nullptr);
    orderPlaces = childOrder_.RemovedMany(CChildOrder::kKept, indices);
    return taken;
}

void CNodeBase::InsertChildren(const std::vector<int32_t>& indices,
                               std::vector<std::unique_ptr<INode>> children,
                               const std::vector<size_t>& orderPlaces) {
    for (const auto& child : children)
        child->SetParent(this);
    children_.InsertAt(indices, std::move(children));
    childOrder_.RestoreMany(orderPlaces, CChildOrder::kKept);
}

bool CNodeBase::XmlClose(CXmlWriter&) {
    return true;
}

bool CNodeBase::AddChild(std::unique_ptr<INode>& child) {
    if (reading_)
        NoteChild(CChildOrder::kKept);
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
    childOrder_.Clear();
}

std::string_view CNodeBase::CheckAttribute(std::string_view, std::string_view value) {
    return value;
}

void CNodeBase::CopyBaseContent(const INode& source) {
    SetName(source.Name());
    text_ = source.Text();
    attributes_.Clear();
    for (CDictionary::Entry entry : source.Attributes().Entries())
        attributes_.Add(entry.key, entry.value);
    children_.RemoveAll();
    // What the source kept as nodes stays so in the copy, whatever the class would take.
    bool reading = std::exchange(reading_, false);
    for (const auto& child : source.SubNodes()) {
        auto copy = CloneNode(*child);
        copy->SetParent(this);
        copy->SetAnlage(Anlage());
        CNodeBase::AddChild(copy);
    }
    reading_ = reading;
    writtenAsPair_ = source.WrittenAsPair();
    if (const auto* base = dynamic_cast<const CNodeBase*>(&source))
        childOrder_.CopyFrom(base->childOrder_);
}

std::string_view CNodeBase::OwnNumber(std::string_view name, std::string_view value, double& field) {
    field = TextToNumber(value);
    if (!FileNumberFits(field)) {
        ReportNumberKeptAsRead(Name(), name, value);
        return value;
    }
    return kOwnedValue; // one not read whole is kept by ParseAttributes
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
