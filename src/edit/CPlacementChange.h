#pragma once

#include <memory>
#include <vector>

#include "edit/CChange.h"
#include "nodes/CPlacement.h"

namespace kavrin {

class IPlaced;

// Objects moved or turned together. Their placements are taken before, and undo puts those
// values back (with any text kept for them) instead of moving or turning backwards, so that
// nothing drifts; redo moves or turns them again from the very same values.
class CPlacementChange : public CChange {
public:
    struct Transform {
        enum class Kind { Move, Rotate } kind = Kind::Move;
        // Move: dx, dy, dz (cm); Rotate: angle (degrees counter-clockwise), cx, cy (cm).
        double a = 0, b = 0, c = 0;
        static Transform Move(double dx, double dy, double dz) { return {Kind::Move, dx, dy, dz}; }
        static Transform Rotate(double angle, double cx, double cy) { return {Kind::Rotate, angle, cx, cy}; }
    };

    // Takes the objects' placements, then moves or turns each of them once.
    static std::unique_ptr<CPlacementChange> Apply(std::vector<IPlaced*> objects, const Transform& transform);
    // The same edit where it undoes, as a whole, the steps since `start` (four quarter turns,
    // there and back again): the objects get back the very placements they had before `start`
    // instead of the last bits of the arithmetic. `start` must be in force, on the same objects.
    static std::unique_ptr<CPlacementChange> Return(std::vector<IPlaced*> objects, const Transform& transform,
                                                    const CPlacementChange& start,
                                                    const CPlacementChange* firstTurn);

    const std::vector<IPlaced*>& Objects() const { return objects_; }
    const Transform& GetTransform() const { return transform_; }
    // Whether the change records the axes too (a turn, or a return to before one).
    bool Turning() const { return transform_.kind == Transform::Kind::Rotate || !target_.empty(); }

    void Undo() override;
    void Redo() override;
    size_t Count() const { return objects_.size(); }

private:
    CPlacementChange(std::vector<IPlaced*> objects, const Transform& transform);
    void ApplyTransform() const;
    // The placement of object i before this change (kept text included), while it is in force.
    CPlacement Before(size_t i) const;

    std::vector<IPlaced*> objects_;
    // The placements before, flat: one position per object for a move, position and three
    // axes for a turn; the few texts kept by number of the object.
    std::vector<CVector> before_;
    std::vector<std::pair<size_t, CPlacement::KeptText>> kept_;
    Transform transform_;
    // For a change made by Return: the placements it gives back (position and axes).
    std::vector<CPlacement> target_;
};

} // namespace kavrin
