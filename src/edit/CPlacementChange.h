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

    void Undo() override;
    void Redo() override;
    size_t Count() const { return objects_.size(); }

private:
    CPlacementChange(std::vector<IPlaced*> objects, const Transform& transform);
    void ApplyTransform() const;

    std::vector<IPlaced*> objects_;
    // The placements before, flat: one position per object for a move, position and three
    // axes for a turn; the few texts kept by number of the object.
    std::vector<CVector> before_;
    std::vector<std::pair<size_t, CPlacement::KeptText>> kept_;
    Transform transform_;
};

} // namespace kavrin
