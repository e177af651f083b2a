#include "nodes/CVector.h"

#include <cmath>

namespace kavrin {

void CVector::Move(double dx, double dy, double dz) {
    X += dx;
    Y += dy;
    Z += dz;
}

void CVector::Rotate(double angle) {
    double c = 0, s = 0;
    TurnFactors(angle, c, s);
    Rotate(c, s);
}

void CVector::TurnFactors(double angle, double& cosine, double& sine) {
    double r = angle / 180 * kPi;
    cosine = std::cos(r);
    sine = std::sin(r);
}

void CVector::Rotate(double c, double s) {
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
