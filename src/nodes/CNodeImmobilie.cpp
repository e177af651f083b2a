#include "nodes/CNodeImmobilie.h"

#include <algorithm>

#include "core/CStringPack.h"
#include "nodes/CLayoutIndex.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/LayoutLookup.h"
#include "nodes/modNodes.h"

namespace kavrin {

std::string_view CNodeImmobilie::CheckAttribute(std::string_view name, std::string_view value) {
    if (name == "gsbname")
        gsbNameId_ = FileNames().PutString(value);
    else if (name == "kollektorID")
        kollektorId_ = TextToLong(value);
    else if (name == "ImmoIdx")
        immoIdx_ = TextToLong(value);
    else
        return value;
    return kOwnedValue;
}

Variant CNodeImmobilie::XmlAttr(std::string_view name) const {
    if (name == "gsbname")
        return GsbName();
    if (name == "kollektorID")
        return kollektorId_;
    if (name == "ImmoIdx")
        return immoIdx_;
    return {};
}

bool CNodeImmobilie::CheckNode() {
    bewegTeile_.Freeze();
    return CNodeBase::CheckNode();
}

namespace {
constexpr uint8_t kPartSlot = 1;
constexpr uint8_t kFrameSlot = 2;
} // namespace

bool CNodeImmobilie::TakeElement(const XmlElement& element) {
    return frame_.OfferElement(element, [this] { NoteOwnedChild(kFrameSlot); });
}

bool CNodeImmobilie::AddChild(std::unique_ptr<INode>& child) {
    if (dynamic_cast<CNodeBewegTeil*>(child.get()) && child->Name() == "BeweglichesTeil") {
        NoteOwnedChild(kPartSlot);
        AddBewegTeil(std::move(child));
        return true;
    }
    if (frame_.Offer(child, [this] { NoteOwnedChild(kFrameSlot); }))
        return true;
    return CNodeBase::AddChild(child);
}

std::span<const uint8_t> CNodeImmobilie::DefaultSlots() const {
    static const uint8_t order[] = {kPartSlot, kFrameSlot, CChildOrder::kKept};
    return order;
}

int CNodeImmobilie::OwnedChildCount(uint8_t slot) const {
    if (slot == kPartSlot)
        return bewegTeile_.Count();
    return slot == kFrameSlot && frame_.Present() ? 1 : 0;
}

bool CNodeImmobilie::WriteOwnedChild(CXmlWriter& writer, uint8_t slot, int instance) {
    return slot == kPartSlot ? WriteNode(writer, *bewegTeile_.Item(instance)) : frame_.Write(writer);
}

void CNodeImmobilie::Clear() {
    for (const auto& part : bewegTeile_)
        part->Clear();
    bewegTeile_.RemoveAll();
    kollektors_.reset();
    CNodeBase::Clear();
}

std::unique_ptr<INode> CNodeImmobilie::Clone() const {
    return CloneOf(*this);
}

void CNodeImmobilie::Copy(const INode& source) {
    CopyBaseContent(source);
    const auto* building = dynamic_cast<const CNodeImmobilie*>(&source);
    if (!building)
        return;
    frame_.CopyFrom(building->frame_, this);
    kollektors_.reset();
    gsbNameId_ = building->gsbNameId_;
    kollektorId_ = building->kollektorId_;
    immoIdx_ = building->immoIdx_;
    bewegTeile_.RemoveAll();
    for (const auto& part : building->bewegTeile_)
        AddBewegTeil(CloneNode(*part));
}

const std::string& CNodeImmobilie::GsbName() const {
    return FileNames().GetString(gsbNameId_);
}

bool CNodeImmobilie::isGleisObjekt() const {
    const auto* collection = dynamic_cast<const CNodeImmoSammlung*>(Parent());
    return collection && collection->HoldsGleisObjekte();
}

void CNodeImmobilie::AddBewegTeil(std::unique_ptr<INode> part) {
    if (bewegTeile_.UpperBound() < 0)
        bewegTeile_.Size(5, 10);
    part->SetParent(this);
    part->SetAnlage(Anlage());
    bewegTeile_.Add(std::move(part));
}

bool CNodeImmobilie::Paint(CPaintTarget& target) {
    return PaintPlaced(target, DreiBein(), PlacedMark::Building, GsbName());
}

bool CNodeImmobilie::inRect(const CRect& world) const {
    return world.Contains(DreiBein().Pos().X, DreiBein().Pos().Y);
}

CNodeKollektor* CNodeImmobilie::FirstKollektor() const {
    return Anlage() ? FindKollektor(*Anlage(), kollektorId_) : nullptr;
}

void CNodeImmobilie::AddBewegKollektors(std::vector<CNodeKollektor*>& list) const {
    if (!Anlage())
        return;
    for (const auto& part : bewegTeile_) {
        const auto* bewegTeil = dynamic_cast<const CNodeBewegTeil*>(part.get());
        CNodeKollektor* kollektor = bewegTeil ? FindKollektor(*Anlage(), bewegTeil->KollektorId()) : nullptr;
        if (kollektor && std::find(list.begin(), list.end(), kollektor) == list.end())
            list.push_back(kollektor);
    }
}

const std::vector<CNodeKollektor*>& CNodeImmobilie::GetAllKollektors() {
    if (!kollektors_) {
        kollektors_ = std::make_unique<std::vector<CNodeKollektor*>>();
        if (CNodeKollektor* own = FirstKollektor())
            kollektors_->push_back(own);
        AddBewegKollektors(*kollektors_);
    }
    return *kollektors_;
}

bool CNodeImmobilie::hasBewegtesGleis() const {
    std::vector<CNodeKollektor*> kollektors;
    AddBewegKollektors(kollektors);
    return std::any_of(kollektors.begin(), kollektors.end(),
                       [](const CNodeKollektor* kollektor) { return !kollektor->Gleise().empty(); });
}

bool CNodeImmobilie::HasCompanions() const {
    return kollektorId_ > 0 || bewegTeile_.Count() > 0;
}

// A road or rail object brings its own tracks (its collector); a building's moving parts carry
// theirs. Both go where the object goes.
void CNodeImmobilie::Companions(const CLayoutIndex& index, std::vector<CNodeKollektor*>& kollektors,
                                std::vector<CNodeGleis*>& tracks) const {
    auto take = [&](int32_t kollektorId) {
        CNodeKollektor* kollektor = index.Kollektor(kollektorId);
        if (!kollektor)
            return;
        kollektors.push_back(kollektor);
        for (const CKollektorGleis& entry : kollektor->Gleise())
            if (CNodeGleis* track = index.Gleis(entry.GleissystemID, entry.GleisID))
                tracks.push_back(track);
    };
    if (kollektorId_ > 0)
        take(kollektorId_);
    for (const auto& part : bewegTeile_)
        if (const auto* bewegTeil = dynamic_cast<const CNodeBewegTeil*>(part.get()))
            take(bewegTeil->KollektorId());
}

// Tracks that are selected themselves are left to the selection, so that nothing moves twice.
template <typename Transform> void CNodeImmobilie::MoveWithCompanions(Transform transform) {
    transform(static_cast<IPlaced&>(*this));
    if (!HasCompanions() || !Anlage())
        return;
    std::vector<CNodeKollektor*> kollektors;
    std::vector<CNodeGleis*> tracks;
    Companions(CLayoutIndex(*Anlage()), kollektors, tracks);
    std::sort(kollektors.begin(), kollektors.end());
    kollektors.erase(std::unique(kollektors.begin(), kollektors.end()), kollektors.end());
    std::sort(tracks.begin(), tracks.end());
    tracks.erase(std::unique(tracks.begin(), tracks.end()), tracks.end());
    for (CNodeKollektor* kollektor : kollektors)
        transform(static_cast<IPlaced&>(*kollektor));
    for (CNodeGleis* track : tracks)
        if (!track->Selected())
            transform(static_cast<IPlaced&>(*track));
}

void CNodeImmobilie::Move(double dx, double dy, double dz) {
    MoveWithCompanions([=](IPlaced& placed) { placed.MoveFrame(dx, dy, dz); });
}

void CNodeImmobilie::Rotate(double angle, double cx, double cy) {
    MoveWithCompanions([=](IPlaced& placed) { placed.RotateFrame(angle, cx, cy); });
}

} // namespace kavrin
