#include "edit/CPlacementChange.h"

#include <algorithm>

#include "nodes/IPlaced.h"

namespace kavrin {

CPlacementChange::CPlacementChange(std::vector<IPlaced*> objects, const Transform& transform)
    : objects_(std::move(objects)), transform_(transform) {}

std::unique_ptr<CPlacementChange> CPlacementChange::Apply(std::vector<IPlaced*> objects,
                                                          const Transform& transform) {
    std::unique_ptr<CPlacementChange> change(new CPlacementChange(std::move(objects), transform));
    change->Redo();
    return change;
}

std::unique_ptr<CPlacementChange> CPlacementChange::Return(std::vector<IPlaced*> objects,
                                                           const Transform& transform,
                                                           const CPlacementChange& start,
                                                           const CPlacementChange* firstTurn) {
    std::unique_ptr<CPlacementChange> change(new CPlacementChange(std::move(objects), transform));
    change->target_.reserve(change->objects_.size());
    for (size_t i = 0; i < change->objects_.size(); ++i) {
        // Moves leave the axes alone: they are those from before the first turn, if any.
        CPlacement placement = start.Before(i);
        placement.turning = firstTurn != nullptr;
        if (firstTurn && firstTurn != &start)
            placement.axes = firstTurn->Before(i).axes;
        change->target_.push_back(std::move(placement));
    }
    change->Redo();
    return change;
}

CPlacement CPlacementChange::Before(size_t i) const {
    const size_t stride = Turning() ? 4 : 1;
    CPlacement placement;
    placement.pos = before_[i * stride];
    placement.turning = Turning();
    if (Turning())
        placement.axes = {before_[i * stride + 1], before_[i * stride + 2], before_[i * stride + 3]};
    auto kept = std::lower_bound(kept_.begin(), kept_.end(), i,
                                 [](const auto& entry, size_t index) { return entry.first < index; });
    if (kept != kept_.end() && kept->first == i)
        placement.kept = kept->second;
    return placement;
}

void CPlacementChange::Redo() {
    const bool turning = Turning();
    before_.clear();
    before_.reserve(objects_.size() * (turning ? 4 : 1));
    kept_.clear();
    for (size_t i = 0; i < objects_.size(); ++i) {
        CPlacement placement = objects_[i]->TakePlacement(turning);
        before_.push_back(placement.pos);
        if (turning)
            before_.insert(before_.end(), placement.axes.begin(), placement.axes.end());
        if (!placement.kept.Empty())
            kept_.emplace_back(i, std::move(placement.kept));
    }
    ApplyTransform();
}

void CPlacementChange::ApplyTransform() const {
    if (!target_.empty()) {
        for (size_t i = 0; i < objects_.size(); ++i)
            objects_[i]->SetPlacement(CPlacement(target_[i]));
        return;
    }
    if (transform_.kind == Transform::Kind::Move)
        for (IPlaced* object : objects_)
            object->MoveFrame(transform_.a, transform_.b, transform_.c);
    else
        for (IPlaced* object : objects_)
            object->RotateFrame(transform_.a, transform_.b, transform_.c);
}

void CPlacementChange::Undo() {
    const bool turning = Turning();
    const size_t stride = turning ? 4 : 1;
    size_t nextKept = 0;
    for (size_t i = 0; i < objects_.size(); ++i) {
        CPlacement placement;
        const CVector* values = &before_[i * stride];
        placement.pos = values[0];
        placement.turning = turning;
        if (turning)
            placement.axes = {values[1], values[2], values[3]};
        if (nextKept < kept_.size() && kept_[nextKept].first == i)
            placement.kept = std::move(kept_[nextKept++].second);
        objects_[i]->SetPlacement(std::move(placement));
    }
    // Redo takes them anew; until then the step holds nothing.
    before_.clear();
    before_.shrink_to_fit();
    kept_.clear();
}

} // namespace kavrin
