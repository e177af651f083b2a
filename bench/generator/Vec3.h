#pragma once

#include <cmath>

namespace kavrin::gen {

/// A point or direction in layout units (cm; x east, y north, z up).
struct Vec3 {
    double x = 0;
    double y = 0;
    double z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(Vec3 a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
inline Vec3 cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 a) {
    return std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
}

/// A placement: position and the three axes forward (Dir), left (Nor) and up (Bin).
struct Frame {
    Vec3 pos;
    Vec3 dir{1, 0, 0};
    Vec3 nor{0, 1, 0};
    Vec3 bin{0, 0, 1};
};

/// Upright placement at pos looking along the horizontal unit heading (hx, hy).
inline Frame uprightFrame(Vec3 pos, double hx, double hy) {
    return {pos, {hx, hy, 0}, {-hy, hx, 0}, {0, 0, 1}};
}

} // namespace kavrin::gen
