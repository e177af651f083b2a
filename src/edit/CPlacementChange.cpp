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
    before_.reserve(objects_.size());
    for (const IPlaced* object : objects_)
        before_.push_back(object->Placement(turning));
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
    for (size_t i = objects_.size(); i-- > 0;)
        objects_[i]->SetPlacement(before_[i]);
    before_.clear();
    before_.shrink_to_fit();
}

} // namespace kavrin
