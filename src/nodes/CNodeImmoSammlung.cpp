#include "nodes/CNodeImmoSammlung.h"

#include "document/CAnlage.h"
#include "document/NodeAttributes.h"
#include "nodes/CObjectTexte.h"

namespace kavrin {

namespace {
constexpr const char* kIdAttribute = "GebaudesammlungID";
constexpr int kImmoTextOffset = 20;
} // namespace

std::string_view CNodeImmoSammlung::CheckAttribute(std::string_view name, std::string_view value) {
    if (name != kIdAttribute)
        return value;
    id_ = TextToInteger(value);
    return kOwnedValue;
}

Variant CNodeImmoSammlung::XmlAttr(std::string_view name) const {
    if (name == kIdAttribute)
        return id_;
    return {};
}

// The chapter is registered from here too, so that a collection counts as found also when the
// layout's own collection of chapters has not run (yet).
bool CNodeImmoSammlung::CheckNode() {
    bool ok = CNodeBase::CheckNode();
    if (Anlage())
        Anlage()->FoundChapter().Register(Name());
    return ok;
}

std::unique_ptr<INode> CNodeImmoSammlung::Clone() const {
    return CloneOf(*this);
}

// Buildings are kept children, so they are deep-copied with the base content.
void CNodeImmoSammlung::Copy(const INode& source) {
    CopyBaseContent(source);
    if (const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(&source))
        id_ = collection->id_;
}

void CNodeImmoSammlung::SetID(int16_t id) {
    id_ = id;
    AddOwnedAttribute(*this, kIdAttribute);
}

std::string CNodeImmoSammlung::DisplayName() const {
    return CObjectTexte::Immos(id_ + kImmoTextOffset);
}

bool CNodeImmoSammlung::HoldsGleisObjekte() const {
    return id_ == 1 || id_ == 2 || id_ == 3 || id_ == 6;
}

} // namespace kavrin
