#pragma once

namespace kavrin {

// An axis-aligned rectangle on the plan; y points up, so a normalised one has Top >= Bottom.
class CRect {
public:
    CRect() = default;
    CRect(double left, double top, double right, double bottom)
        : Left(left), Top(top), Right(right), Bottom(bottom) {}

    // Edges included; assumes a normalised rectangle.
    bool Contains(double x, double y) const { return Left <= x && x <= Right && Bottom <= y && y <= Top; }
    void Normalize();
    double Width() const { return Right - Left; }
    // Bottom - Top: zero or negative for a normalised rectangle. Callers rely on this sign.
    double Height() const { return Bottom - Top; }

    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

} // namespace kavrin
