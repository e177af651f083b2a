#include "nodes/CVector.h"

#include <cmath>

namespace kavrin {

void CVector::Move(double dx, double dy, double dz) {
    X += dx;
    Y += dy;
    Z += dz;
}

void CVector::Rotate(double angle) {
    double r = angle / 180 * kPi;
    double c = std::cos(r);
    double s = std::sin(r);
    double x = X;
    double y = Y;
    X = c * x - s * y;
    Y = c * y + s * x;
}

void CVector::Copy(const CVector& source) {
    X = source.X;
    Y = source.Y;
    Z = source.Z;
}

} // namespace kavrin
