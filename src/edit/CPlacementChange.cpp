#include "edit/CPlacementChange.h"

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

void CPlacementChange::Redo() {
    const bool turning = transform_.kind == Transform::Kind::Rotate;
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
    if (transform_.kind == Transform::Kind::Move)
        for (IPlaced* object : objects_)
            object->MoveFrame(transform_.a, transform_.b, transform_.c);
    else
        for (IPlaced* object : objects_)
            object->RotateFrame(transform_.a, transform_.b, transform_.c);
}

void CPlacementChange::Undo() {
    const bool turning = transform_.kind == Transform::Kind::Rotate;
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
