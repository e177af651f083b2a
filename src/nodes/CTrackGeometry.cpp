#include "nodes/CTrackGeometry.h"

#include <algorithm>
#include <cmath>

#include "core/CStringPack.h"
#include "document/NodeAttributes.h"
#include "nodes/CNodeGleis.h"

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

// The geometry of the newer format is read from kept attribute texts every time a track is
// drawn; the name of an attribute is looked up once (its index never changes), and the text is
// read in place.
class AttributeKey {
public:
    explicit AttributeKey(const char* name) : name_(name), key_(AttributeNames().PutString(name)) {}
    double Of(const INode& node) const {
        const std::string* value = node.Attributes().Item(key_);
        if (!value)
            return 0;
        return *value == kOwnedValue ? TextToNumber(AttributeText(node, name_)) : TextToNumber(*value);
    }

private:
    const char* name_;
    int16_t key_;
};

double Number(const INode& node, const char* name) {
    return TextToNumber(AttributeText(node, name));
}

// A "Position" (x, y, z) or "Vector" (dx, dy, dz) element.
CVector ReadVector(const INode& node) {
    static const AttributeKey x("x"), y("y"), z("z"), dx("dx"), dy("dy"), dz("dz");
    if (std::string_view(node.Name()) == "Position")
        return {x.Of(node), y.Of(node), z.Of(node)};
    return {dx.Of(node), dy.Of(node), dz.Of(node)};
}

// Names compared as views: a different length is rejected without looking at the letters.
const INode* Child(const INode& node, std::string_view name) {
    for (const auto& child : node.SubNodes())
        if (std::string_view(child->Name()) == name)
            return child.get();
    return nullptr;
}

// The Position and Vector children of an element, in order.
std::vector<CVector> Vectors(const INode& node) {
    std::vector<CVector> vectors;
    vectors.reserve(4);
    for (const auto& child : node.SubNodes()) {
        std::string_view name = child->Name();
        if (name == "Position" || name == "Vector")
            vectors.push_back(ReadVector(*child));
    }
    return vectors;
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

void CTrackGeometry::ReadNewFormat(const CNodeGleis& track) {
    if (const INode* frame = Child(track, "Frame")) {
        std::vector<CVector> vectors = Vectors(*frame);
        if (vectors.size() >= 4) {
            frame_.position = vectors[0];
            for (int i = 0; i < 3; ++i)
                frame_.axis[i] = vectors[static_cast<size_t>(i) + 1];
        }
    } else {
        frame_.axis[0] = {1, 0, 0};
        frame_.axis[1] = {0, 1, 0};
        frame_.axis[2] = {0, 0, 1};
    }
    if (const INode* interval = Child(track, "Interval")) {
        static const AttributeKey nearKey("near"), farKey("far");
        near_ = nearKey.Of(*interval);
        far_ = farKey.Of(*interval);
    }
    length_ = std::max(0.0, far_ - near_) * 100;
    const INode* curve = Child(track, "Curve");
    if (curve && curve->SubNodes().Count() > 0)
        ReadCurve(*curve->SubNodes().Item(0));
    if (kind_ == Kind::Chord && !chordFromCurve_) {
        chordA_ = frame_.Apply({0, 0, 0}) * 100;
        chordB_ = frame_.Apply({far_ - near_, 0, 0}) * 100;
    }
}

void CTrackGeometry::ReadCurve(const INode& curve) {
    const std::string& kind = curve.Name();
    if (kind == "Line" || kind == "Arc") {
        const INode* bundle = Child(curve, kind == "Line" ? "VectorBundle" : "VectorBundle2");
        std::vector<CVector> v = bundle ? Vectors(*bundle) : std::vector<CVector>{};
        if (kind == "Line" && v.size() >= 2) {
            q_ = v[0], d_ = v[1], kind_ = Kind::Line;
        } else if (kind == "Arc" && v.size() >= 3 && Norm(v[2]) > 0) {
            q_ = v[0], d_ = v[1], w_ = v[2], radius_ = Norm(v[2]), kind_ = Kind::Arc;
        }
    } else if (kind == "Cubic" || kind == "Spline") {
        std::vector<const INode*> pieces;
        if (kind == "Cubic")
            pieces.push_back(&curve);
        for (const auto& child : curve.SubNodes())
            if (child->Name() == "Cubic")
                pieces.push_back(child.get());
        for (const INode* piece : pieces) {
            std::vector<CVector> v = Vectors(*piece);
            if (v.size() >= 4)
                cubic_.insert(cubic_.end(), v.begin(), v.begin() + 4);
        }
        if (!cubic_.empty())
            kind_ = Kind::Cubic;
    } else if (kind == "EEPCurve") {
        const INode* inner = Child(curve, "Frame");
        std::vector<CVector> v = inner ? Vectors(*inner) : std::vector<CVector>{};
        if (v.size() >= 4) {
            double a = Number(curve, "Anfangsfuehrungsverdrehung");
            classic_.p = v[0];
            classic_.t = v[1];
            classic_.n = v[2] * std::cos(a) - v[3] * std::sin(a);
            classic_.b = v[3] * std::cos(a) + v[2] * std::sin(a);
            classic_.k = Number(curve, "Kruemmung");
            classic_.torsion = Number(curve, "Torsion");
            kind_ = Kind::EEPCurve;
        }
    }
    if (kind_ == Kind::Chord) {
        // Kinds not understood yet: the straight line between the first and last point they name.
        std::vector<CVector> points;
        for (const auto& child : curve.SubNodes())
            if (child->Name() == "Position")
                points.push_back(ReadVector(*child));
        if (points.size() >= 2) {
            chordA_ = frame_.Apply(points.front()) * 100;
            chordB_ = frame_.Apply(points.back()) * 100;
            length_ = std::max(length_, Norm(chordB_ - chordA_));
            chordFromCurve_ = true;
        }
    }
}

CVector CTrackGeometry::LocalAt(double s) const {
    switch (kind_) {
    case Kind::Line:
        return q_ + d_ * s;
    case Kind::Arc:
        return q_ - w_ * std::cos(s / radius_) + d_ * (radius_ * std::sin(s / radius_));
    case Kind::Cubic: {
        size_t segments = cubic_.size() / 4;
        double span = far_ - near_;
        double u = span > 0 ? (s - near_) / span * static_cast<double>(segments) : 0;
        size_t index = std::min(segments - 1, static_cast<size_t>(std::max(0.0, std::floor(u))));
        double f = u - static_cast<double>(index);
        const CVector* c = &cubic_[index * 4];
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

} // namespace kavrin
