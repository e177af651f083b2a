#include "plan/CSelection.h"

#include <limits>
#include <memory>
#include <unordered_set>

#include "core/CError.h"
#include "core/modTools.h"
#include "nodes/CLayoutIndex.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CTrackGeometry.h"
#include "plan/CPaintTarget.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
// Runs a member's work; a failure is reported with the member's name and ends it.
template <typename Work> void Guarded(const char* member, Work work) {
    try {
        work();
    } catch (...) {
        ReportCurrentError(std::string("CSelection.") + member);
    }
}

// 32-bit counting with the overflow test of the runtime.
int32_t Counted32(int32_t value, int32_t change) {
    int32_t result = 0;
    if (__builtin_add_overflow(value, change, &result))
        throw CError::Overflow();
    return result;
}

IPlaced* PlacedOf(IPaint& item) {
    switch (item.PaintKind()) {
    case IPaint::Kind::Gleis:
        return static_cast<CNodeGleis*>(&item);
    case IPaint::Kind::Immobilie:
        return static_cast<CNodeImmobilie*>(&item);
    case IPaint::Kind::Good:
        return static_cast<CNodeGood*>(&item);
    default:
        return nullptr;
    }
}
} // namespace

CSelection::Counted CSelection::CountsOf(const IPaint& item) {
    Counted counts;
    switch (item.PaintKind()) {
    case IPaint::Kind::Gleis:
        counts.gleise = 1;
        break;
    case IPaint::Kind::Immobilie:
        counts.immos = 1;
        counts.gleisObjekte = static_cast<const CNodeImmobilie&>(item).isGleisObjekt() ? 1 : 0;
        break;
    case IPaint::Kind::Good:
        counts.goods = 1;
        break;
    default:
        break;
    }
    return counts;
}

// All counters are tested before any of them changes, so an overflow leaves the selection as it was.
void CSelection::Change(const Counted& counts, int sign) {
    int32_t count = Counted32(count_, sign);
    int32_t gleise = Counted32(gleise_, sign * counts.gleise);
    int32_t immos = Counted32(immos_, sign * counts.immos);
    int32_t goods = Counted32(goods_, sign * counts.goods);
    int32_t gleisObjekte = Counted32(gleisObjekte_, sign * counts.gleisObjekte);
    count_ = count;
    gleise_ = gleise;
    immos_ = immos;
    goods_ = goods;
    gleisObjekte_ = gleisObjekte;
    ++generation_;
}

void CSelection::Clear() {
    Guarded("Clear", [this] {
        for (size_t i = members_.size(); i-- > 0;)
            if (members_[i])
                members_[i]->SetSelected(false);
        members_.clear();
        positions_.clear();
        holes_ = 0;
        count_ = gleise_ = immos_ = goods_ = gleisObjekte_ = 0;
        ++generation_;
    });
}

void CSelection::Add(IPaint& item) {
    Guarded("Add", [this, &item] {
        if (item.Selected())
            return;
        Change(CountsOf(item), 1);
        item.SetSelected(true);
        positions_[item.KeyNumber()] = static_cast<uint32_t>(members_.size());
        members_.push_back(&item);
    });
}

void CSelection::Remove(IPaint& item) {
    Guarded("Remove", [this, &item] {
        if (!item.Selected())
            return;
        auto found = positions_.find(item.KeyNumber());
        if (found == positions_.end())
            throw CError::SubscriptOutOfRange();
        Change(CountsOf(item), -1);
        item.SetSelected(false);
        Forget(found->second);
        positions_.erase(found);
        CompactIfSparse();
    });
}

void CSelection::SetSelection(IPaint& item, bool state) {
    if (item.Selected() == state)
        return;
    if (state)
        Add(item);
    else
        Remove(item);
}

void CSelection::Forget(size_t position) {
    members_[position] = nullptr;
    ++holes_;
}

// Taking many members out one by one leaves holes; once they are the greater part, the
// members close ranks (the order stays).
void CSelection::CompactIfSparse() {
    if (holes_ < 64 || holes_ * 2 < members_.size())
        return;
    std::vector<IPaint*> kept;
    kept.reserve(members_.size() - holes_);
    for (IPaint* member : members_)
        if (member) {
            positions_[member->KeyNumber()] = static_cast<uint32_t>(kept.size());
            kept.push_back(member);
        }
    members_ = std::move(kept);
    holes_ = 0;
}

void CSelection::Reserve(size_t count) {
    members_.reserve(count);
    positions_.reserve(count);
}

// Companions are few (the collectors of buildings and of their moving parts, and their tracks),
// so only they are checked against each other; a companion track that is a member is the
// member's business.
std::vector<IPlaced*> CSelection::PlacedObjects() const {
    std::vector<IPlaced*> placed;
    placed.reserve(static_cast<size_t>(count_));
    std::vector<CNodeKollektor*> kollektors;
    std::vector<CNodeGleis*> tracks;
    std::unique_ptr<CLayoutIndex> index;
    for (IPaint& member : NewEnum()) {
        if (IPlaced* own = PlacedOf(member))
            placed.push_back(own);
        if (member.PaintKind() != IPaint::Kind::Immobilie)
            continue;
        const auto& building = static_cast<const CNodeImmobilie&>(member);
        if (!building.HasCompanions() || !building.Anlage())
            continue;
        if (!index)
            index = std::make_unique<CLayoutIndex>(*building.Anlage());
        building.Companions(*index, kollektors, tracks);
    }
    std::unordered_set<const IPlaced*> listed;
    for (CNodeKollektor* kollektor : kollektors)
        if (listed.insert(kollektor).second)
            placed.push_back(kollektor);
    for (CNodeGleis* track : tracks)
        if (!track->Selected() && listed.insert(track).second)
            placed.push_back(track);
    return placed;
}

void CSelection::Move(double dx, double dy, double dz) {
    Guarded("Move", [&] {
        for (IPlaced* placed : PlacedObjects())
            placed->MoveFrame(dx, dy, dz);
    });
}

void CSelection::Rotate(double angle, double cx, double cy) {
    Guarded("Rotate", [&] {
        for (IPlaced* placed : PlacedObjects())
            placed->RotateFrame(angle, cx, cy);
    });
}

std::vector<CSelection::Cut> CSelection::CutSelection() {
    std::vector<Cut> cuts;
    Guarded("CutSelection", [&] {
        std::vector<CNodeGleisSys*> systems;
        for (IPaint& member : NewEnum()) {
            if (member.PaintKind() != IPaint::Kind::Gleis)
                continue;
            auto* system = dynamic_cast<CNodeGleisSys*>(static_cast<CNodeGleis&>(member).Parent());
            if (system && (systems.empty() || systems.back() != system) &&
                std::find(systems.begin(), systems.end(), system) == systems.end())
                systems.push_back(system);
        }
        for (CNodeGleisSys* system : systems) {
            Cut cut{system, system->CutConnections([](const CNodeGleis& track) { return track.Selected(); })};
            if (!cut.removed.Empty())
                cuts.push_back(std::move(cut));
        }
    });
    return cuts;
}

int32_t CSelection::RemoveIf(const std::function<bool(const IPaint&)>& drop) {
    int32_t removed = 0;
    Guarded("RemoveIf", [&] {
        for (size_t i = members_.size(); i-- > 0;) {
            IPaint* member = members_[i];
            if (!member || !drop(*member))
                continue;
            Change(CountsOf(*member), -1);
            member->SetSelected(false);
            positions_.erase(member->KeyNumber());
            Forget(i);
            ++removed;
        }
        CompactIfSparse();
    });
    return removed;
}

// The deletable members are noted first and then taken out from the last to the first.
std::vector<CSelection::DroppedTrack> CSelection::RemoveDeleteables() {
    std::vector<DroppedTrack> dropped;
    Guarded("RemoveDeleteables", [&] {
        std::vector<size_t> deleteable;
        for (size_t i = 0; i < members_.size(); ++i) {
            if (!members_[i] || !members_[i]->isDeleteable())
                continue;
            deleteable.push_back(i);
            if (members_[i]->PaintKind() == IPaint::Kind::Gleis) {
                const auto& track = static_cast<const CNodeGleis&>(*members_[i]);
                dropped.push_back({track.GleisSysID(), track.ID()});
            }
        }
        for (size_t i = deleteable.size(); i-- > 0;) {
            IPaint* member = members_[deleteable[i]];
            Change(CountsOf(*member), -1);
            member->SetSelected(false);
            positions_.erase(member->KeyNumber());
            Forget(deleteable[i]);
        }
        CompactIfSparse();
    });
    return dropped;
}

void CSelection::DecrObjektCount() {
    Guarded("DecrObjektCount", [this] { gleisObjekte_ = Counted32(gleisObjekte_, -1); });
}

CBox CSelection::BoundingBox() const {
    CBox box;
    Guarded("BoundingBox", [&] {
        auto add = [&box](const CVector& v) {
            box.Add(static_cast<float>(v.X), static_cast<float>(v.Y), static_cast<float>(v.Z));
        };
        for (IPaint& member : NewEnum()) {
            switch (member.PaintKind()) {
            case IPaint::Kind::Gleis:
                for (const CVector& point : CTrackGeometry(static_cast<CNodeGleis&>(member)).Outline())
                    add(point);
                break;
            case IPaint::Kind::Immobilie:
                add(static_cast<CNodeImmobilie&>(member).DreiBein().Pos());
                break;
            case IPaint::Kind::Good:
                add(static_cast<CNodeGood&>(member).DreiBein().Pos());
                break;
            default:
                break;
            }
        }
    });
    return box;
}

std::vector<CVector> CSelection::ExtentPoints() const {
    std::vector<CVector> points;
    Guarded("ExtentPoints", [&] {
        for (IPlaced* placed : PlacedObjects()) {
            if (auto* track = dynamic_cast<CNodeGleis*>(placed)) {
                std::vector<CVector> outline = CTrackGeometry(*track).Outline();
                points.insert(points.end(), outline.begin(), outline.end());
            } else if (auto* building = dynamic_cast<CNodeImmobilie*>(placed)) {
                points.push_back(building->DreiBein().Pos());
            } else if (auto* good = dynamic_cast<CNodeGood*>(placed)) {
                points.push_back(good->DreiBein().Pos());
            }
        }
    });
    return points;
}

std::string CSelection::CountsText() const {
    auto counted = [](int32_t count, const char* one, const char* many) {
        return FormatMessage("%1 %2", WholeNumberText(count), count == 1 ? one : many);
    };
    return FormatMessage("%1, %2, %3", counted(gleise_, "Gleis", "Gleise"),
                         counted(immos_, "Immobilie", "Immobilien"), counted(goods_, "Gut", "Güter"));
}

namespace {
uint32_t ColorOf(const IPaint& member, const CViewOptions& options) {
    switch (member.PaintKind()) {
    case IPaint::Kind::Gleis: {
        const auto* system =
            dynamic_cast<const CNodeGleisSys*>(static_cast<const CNodeGleis&>(member).Parent());
        int style = system ? CViewOptions::TrackStyleOfSystem(system->Number()) : 0;
        return style > 0 ? options.TrackColor(style) : 0;
    }
    case IPaint::Kind::Immobilie: {
        const auto* collection =
            dynamic_cast<const CNodeImmoSammlung*>(static_cast<const CNodeImmobilie&>(member).Parent());
        int id = collection ? collection->ID() : 0;
        if (int style = CViewOptions::TrackStyleOfCollection(id); style > 0)
            return options.TrackColor(style);
        return id >= CViewOptions::kFirstImmoKind && id <= CViewOptions::kLastImmoKind ? options.ImmoColor(id)
                                                                                       : 0;
    }
    case IPaint::Kind::Good:
        return options.GoodsColor();
    default:
        return 0;
    }
}
} // namespace

void CSelection::Paint(CPaintTarget& target, const CViewOptions& options) const {
    Guarded("Paint", [&] {
        for (IPaint& member : NewEnum()) {
            target.Color = ColorOf(member, options);
            member.Paint(target);
        }
    });
}

} // namespace kavrin
