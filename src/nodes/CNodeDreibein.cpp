#include "nodes/CNodeDreibein.h"

#include "nodes/CNodeVektor.h"
#include "nodes/modNodes.h"

namespace kavrin {

namespace {
const char* const kVectorNames[] = {"Pos", "Dir", "Nor", "Bin"};

int VectorIndex(const std::string& name) {
    for (int i = 0; i < 4; ++i)
        if (name == kVectorNames[i])
            return i;
    return -1;
}

bool IsZero(const CVector& v) {
    return v.X == 0 && v.Y == 0 && v.Z == 0;
}
} // namespace

std::span<const uint8_t> CNodeDreibein::DefaultSlots() const {
    static const uint8_t order[] = {1, 2, 3, 4, CChildOrder::kKept};
    return order;
}

CVector* CNodeDreibein::FrameVector(const std::string& name) {
    switch (VectorIndex(name)) {
    case 0:
        return &DreiBein().Pos();
    case 1:
        return &DreiBein().Dir();
    case 2:
        return &DreiBein().Nor();
    case 3:
        return &DreiBein().Bin();
    default:
        return nullptr;
    }
}

bool CNodeDreibein::AddChild(std::unique_ptr<INode>& child) {
    auto* vektor = dynamic_cast<CNodeVektor*>(child.get());
    if (!vektor || child->Name() != "Vektor")
        return CNodeBase::AddChild(child);
    int index = VectorIndex(vektor->Text());
    bool repeated = index >= 0 && (read_ & (1 << index));
    if (index < 0)
        // The message has always named the frame's own text here, not the vector's.
        AddParseHint(FormatMessage("Unbekannter Vektor '%1' im Dreibein!", Text()));
    else if (repeated)
        AddParseHint(
            FormatMessage("Der Vektor '%1' steht zweimal im Dreibein; der zweite bleibt, wie er ist, "
                          "und gilt nicht.",
                          vektor->Text()));
    if (index < 0 || repeated)
        return CNodeBase::AddChild(child);
    uint8_t bit = static_cast<uint8_t>(1 << index);
    if (vektor->IsPlain()) {
        NoteOwnedChild(static_cast<uint8_t>(index + 1)); // noted before the frame holds it
        GrabVector(*vektor);
        read_ |= bit;
        return true; // released: the values live on in the frame
    }
    GrabVector(*vektor);
    read_ |= bit;
    linked_ |= bit;
    vektor->Link(FrameVector(vektor->Text()));
    return CNodeBase::AddChild(child);
}

bool CNodeDreibein::CheckNode() {
    partial_ = read_ != 0xF;
    return CNodeBase::CheckNode();
}

// A vector consumed into the frame is written by the frame; one kept as a node writes itself.
// A frame read without some vector gains it only once an edit gives it a value.
int CNodeDreibein::OwnedChildCount(uint8_t slot) const {
    if (slot < 1 || slot > 4 || !frame_)
        return slot >= 1 && slot <= 4 && !partial_ ? 1 : 0;
    uint8_t bit = static_cast<uint8_t>(1 << (slot - 1));
    if (linked_ & bit)
        return 0;
    if ((read_ & bit) || Reading())
        return (read_ & bit) ? 1 : 0;
    const CVector* vectors[] = {&frame_->Pos(), &frame_->Dir(), &frame_->Nor(), &frame_->Bin()};
    return !partial_ || !IsZero(*vectors[slot - 1]) ? 1 : 0;
}

bool CNodeDreibein::WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int) {
    const C3Bein& frame = DreiBein();
    if (slot < 1 || slot > 4)
        return true;
    const CVector* vectors[] = {&frame.Pos(), &frame.Dir(), &frame.Nor(), &frame.Bin()};
    return WriteVektor(writer, kVectorNames[slot - 1], *vectors[slot - 1]);
}

void CNodeDreibein::MovePos(double dx, double dy) {
    DreiBein().Pos().Move(dx, dy, 0);
}

C3Bein& CNodeDreibein::DreiBein() {
    if (!frame_)
        frame_ = std::make_unique<C3Bein>();
    return *frame_;
}

bool CNodeDreibein::GrabVector(const CNodeVektor& vektor) {
    CVector* target = FrameVector(vektor.Text());
    if (!target)
        return false;
    target->Copy(vektor.Vector());
    return true;
}

std::unique_ptr<CNodeDreibein> CNodeDreibein::CopyFor(const C3Bein& frame) const {
    auto copy = std::make_unique<CNodeDreibein>();
    copy->SetAnlage(Anlage());
    copy->DreiBein().grab3Bein(frame);
    copy->CopyBaseContent(*this);
    copy->read_ = read_;
    copy->linked_ = linked_;
    copy->partial_ = partial_;
    copy->LinkKeptVectors();
    return copy;
}

// The first kept vector of each linked name follows the frame again.
void CNodeDreibein::LinkKeptVectors() {
    uint8_t pending = linked_;
    for (const auto& child : SubNodes()) {
        auto* vektor = dynamic_cast<CNodeVektor*>(child.get());
        int index = vektor ? VectorIndex(vektor->Text()) : -1;
        if (index < 0 || !(pending & (1 << index)))
            continue;
        vektor->Link(FrameVector(vektor->Text()));
        pending &= static_cast<uint8_t>(~(1 << index));
    }
}

bool CNodeDreibein::IsPlain() const {
    return read_ == 0xF && linked_ == 0 && !ChildOrder().Recorded() && SubNodes().Count() == 0 &&
           Attributes().Empty() && Text().empty();
}

} // namespace kavrin
