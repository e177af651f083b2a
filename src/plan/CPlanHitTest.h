#pragma once

#include "nodes/CVector.h"

namespace kavrin {

class CAnlage;
class CNodeGleis;
class CPlanView;
class INode;

// Finds the object of the plan under a point: among what the last drawing showed (hidden kinds,
// objects outside the height band or the view do not count), signals, contacts, buildings and
// goods whose symbol is within reach before the tracks they stand by, the nearest first.
class CPlanHitTest {
public:
    struct Hit {
        INode* node = nullptr;
        // Where the object is: its position, or for a track the point of its centre line
        // nearest to the one asked about (with the height there).
        CVector at;
        explicit operator bool() const { return node != nullptr; }
    };

    // (x, y) is a world point of the view (paint offsets included); tolerance in world units.
    static Hit At(const CAnlage& anlage, const CPlanView& view, double x, double y, double tolerance);

private:
    CPlanHitTest(double x, double y, double tolerance) : x_(x), y_(y), tolerance_(tolerance) {}
    void VisitTrack(CNodeGleis& track);
    void VisitPlacedObjects(const CAnlage& anlage);
    // Offers a point object whose symbol reaches `reach` beyond its position.
    void Offer(INode& node, const CVector& at, double reach);

    double x_, y_, tolerance_;
    Hit point_;
    double pointDistance_ = 0;
    Hit track_;
    double trackDistance_ = 0;
};

} // namespace kavrin
