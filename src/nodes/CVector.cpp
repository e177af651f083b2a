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

// Quarter turns take exact factors: the cosine and sine of the program's pi leave residues like
// 6E-15 where a 0 belongs, and four quarter turns would not give back the values they started from.
void CVector::TurnFactors(double angle, double& cosine, double& sine) {
    const double rest = std::fmod(angle, 360.0); // exact
    if (rest == 0) {
        cosine = 1;
        sine = 0;
    } else if (rest == 90 || rest == -270) {
        cosine = 0;
        sine = 1;
    } else if (rest == 180 || rest == -180) {
        cosine = -1;
        sine = 0;
    } else if (rest == 270 || rest == -90) {
        cosine = 0;
        sine = -1;
    } else {
        const double r = angle / 180 * kPi;
        cosine = std::cos(r);
        sine = std::sin(r);
    }
}

bool CVector::IsFullTurn(double angle) {
    return std::fmod(angle, 360.0) == 0;
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
