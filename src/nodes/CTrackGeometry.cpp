#include "nodes/CTrackGeometry.h"

#include <algorithm>
#include <cmath>

#include "nodes/CNodeGleis.h"
#include "nodes/CTrackCurve.h"

namespace kavrin {

namespace {

CVector operator+(const CVector& a, const CVector& b) {
    return {a.X + b.X, a.Y + b.Y, a.Z + b.Z};
}
CVector operator-(const CVector& a, const CVector& b) {
    return {a.X - b.X, a.Y - b.Y, a.Z - b.Z};
}
CVector operator*(const CVector& a, double f) {
    return {a.X * f, a.Y * f, a.Z * f};
}
double Norm(const CVector& a) {
    return std::sqrt(a.X * a.X + a.Y * a.Y + a.Z * a.Z);
}

} // namespace

CVector CTrackGeometry::Frame::Apply(const CVector& local) const {
    return position + axis[0] * local.X + axis[1] * local.Y + axis[2] * local.Z;
}

// Centre line of a piece with constant curvature k and torsion, after undoing the built-in cant.
CVector CTrackGeometry::ClassicCurve::At(double s) const {
    if (s == 0)
        return p;
    if (std::fabs(k) < 1e-12)
        return p + t * s;
    if (std::fabs(torsion) < 1e-12)
        return p + t * (std::sin(k * s) / k) + n * ((1 - std::cos(k * s)) / k);
    double w = std::sqrt(k * k + torsion * torsion);
    double w2 = w * w;
    double w3 = w2 * w;
    return p + t * (torsion * torsion * s / w2 + k * k * std::sin(w * s) / w3) +
           n * (k * (1 - std::cos(w * s)) / w2) + b * (torsion * k * (s / w2 - std::sin(w * s) / w3));
}

CTrackGeometry::CTrackGeometry(const CNodeGleis& track) {
    if (track.IsNewFormat())
        ReadNewFormat(track);
    else
        ReadClassic(track);
}

void CTrackGeometry::ReadClassic(const CNodeGleis& track) {
    const C3Bein& frame = track.DreiBein();
    double a = track.AnfFuehrVerdrehung();
    classic_.p = frame.Pos();
    classic_.t = frame.Dir();
    // Most pieces have no built-in cant; they spare the trigonometry.
    double cosA = a == 0 ? 1 : std::cos(a);
    double sinA = a == 0 ? 0 : std::sin(a);
    classic_.n = frame.Nor() * cosA - frame.Bin() * sinA;
    classic_.b = frame.Bin() * cosA + frame.Nor() * sinA;
    classic_.k = track.Kruemmung();
    classic_.torsion = track.Torsion();
    length_ = track.Laenge();
    kind_ = Kind::Classic;
}

// The newer format's numbers were read once, when the track was loaded.
void CTrackGeometry::ReadNewFormat(const CNodeGleis& track) {
    const CTrackCurve& curve = *track.Curve();
    const CTrackCurve::Frame& frame = curve.GetFrame();
    frame_.position = frame.position;
    for (size_t i = 0; i < 3; ++i)
        frame_.axis[i] = frame.axes[i];
    near_ = curve.Near();
    far_ = curve.Far();
    length_ = std::max(0.0, far_ - near_) * 100;
    const std::vector<CVector>& v = curve.Vectors();
    switch (curve.CurveKind()) {
    case CTrackCurve::Kind::Line:
        q_ = v[0], d_ = v[1], kind_ = Kind::Line;
        break;
    case CTrackCurve::Kind::Arc:
        q_ = v[0], d_ = v[1], w_ = v[2], radius_ = Norm(v[2]), kind_ = Kind::Arc;
        break;
    case CTrackCurve::Kind::Cubic:
        cubic_ = &v;
        kind_ = Kind::Cubic;
        break;
    case CTrackCurve::Kind::EEPCurve: {
        double a = curve.Verdrehung();
        classic_.p = v[0];
        classic_.t = v[1];
        classic_.n = v[2] * std::cos(a) - v[3] * std::sin(a);
        classic_.b = v[3] * std::cos(a) + v[2] * std::sin(a);
        classic_.k = curve.Kruemmung();
        classic_.torsion = curve.Torsion();
        kind_ = Kind::EEPCurve;
        break;
    }
    case CTrackCurve::Kind::Chord:
        // Kinds not understood yet: the straight line between the first and last point they name.
        chordA_ = frame_.Apply(v[0]) * 100;
        chordB_ = frame_.Apply(v[1]) * 100;
        length_ = std::max(length_, Norm(chordB_ - chordA_));
        break;
    case CTrackCurve::Kind::None:
        chordA_ = frame_.Apply({0, 0, 0}) * 100;
        chordB_ = frame_.Apply({far_ - near_, 0, 0}) * 100;
        break;
    }
}

CVector CTrackGeometry::LocalAt(double s) const {
    switch (kind_) {
    case Kind::Line:
        return q_ + d_ * s;
    case Kind::Arc:
        return q_ - w_ * std::cos(s / radius_) + d_ * (radius_ * std::sin(s / radius_));
    case Kind::Cubic: {
        size_t segments = cubic_->size() / 4;
        double span = far_ - near_;
        double u = span > 0 ? (s - near_) / span * static_cast<double>(segments) : 0;
        size_t index = std::min(segments - 1, static_cast<size_t>(std::max(0.0, std::floor(u))));
        double f = u - static_cast<double>(index);
        const CVector* c = &(*cubic_)[index * 4];
        return c[0] + c[1] * f + c[2] * (f * f) + c[3] * (f * f * f);
    }
    case Kind::EEPCurve:
        return classic_.At(100 * s) * 0.01;
    default:
        return {};
    }
}

double CTrackGeometry::Curvature() const {
    switch (kind_) {
    case Kind::Classic:
        return std::hypot(classic_.k, classic_.torsion);
    case Kind::Line:
    case Kind::Chord:
        return 0;
    case Kind::Arc:
        return radius_ > 0 ? 1 / (radius_ * 100) : -1;
    default:
        return -1;
    }
}

CVector CTrackGeometry::PointAt(double s) const {
    s = std::clamp(s, 0.0, length_);
    switch (kind_) {
    case Kind::Classic:
        return classic_.At(s);
    case Kind::Chord: {
        double f = length_ > 0 ? s / length_ : 0;
        return chordA_ + (chordB_ - chordA_) * f;
    }
    default:
        return frame_.Apply(LocalAt(near_ + s / 100)) * 100;
    }
}

bool CTrackGeometry::IsStraight() const {
    return kind_ == Kind::Line || kind_ == Kind::Chord ||
           (kind_ == Kind::Classic && std::fabs(classic_.k) < 1e-12);
}

std::vector<CVector> CTrackGeometry::Polyline(double step) const {
    int segments = 1;
    if (!IsStraight() && step > 0 && std::isfinite(length_))
        segments = static_cast<int>(std::clamp(std::ceil(length_ / step), 1.0, 10000.0));
    std::vector<CVector> points;
    points.reserve(static_cast<size_t>(segments) + 1);
    for (int i = 0; i <= segments; ++i)
        points.push_back(PointAt(length_ * i / segments));
    return points;
}

// A chord of length L on a bend of curvature k stands off the curve by about k L^2 / 8.
std::vector<CVector> CTrackGeometry::Outline() const {
    constexpr double kTolerance = 1; // cm
    constexpr double kUnknownStep = 100;
    const double k = Curvature();
    const double step = k > 0 ? std::sqrt(8 * kTolerance / k) : kUnknownStep;
    return Polyline(std::max(step, 10.0));
}

} // namespace kavrin
