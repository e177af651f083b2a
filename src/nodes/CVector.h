#pragma once

namespace kavrin {

// A point or direction in layout units (x east, y north, z up).
class CVector {
public:
    CVector() = default;
    CVector(double x, double y, double z) : X(x), Y(y), Z(z) {}

    void Move(double dx, double dy, double dz);
    // Counter-clockwise about the z axis through the origin, in degrees.
    void Rotate(double angle);
    // The same with the cosine and sine of the angle worked out once (TurnFactors), for turning
    // several vectors by one angle.
    static void TurnFactors(double angle, double& cosine, double& sine);
    // A turn by a multiple of 360 degrees: it changes nothing, and is not worked out (moving to
    // the centre and back could change the last bit).
    static bool IsFullTurn(double angle);
    void Rotate(double cosine, double sine);
    void Copy(const CVector& source);

    double X = 0;
    double Y = 0;
    double Z = 0;
};

// The value of pi the layout arithmetic has always used; kept so rotations give the same numbers.
inline constexpr double kPi = 3.14159265358979;

} // namespace kavrin
