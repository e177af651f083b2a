#pragma once

#include <cstdint>
#include <vector>

#include "nodes/CVector.h"

namespace kavrin {

class CNodeGleis;

// The centre line of a track piece in world units (cm), for both track formats:
// classic pieces from frame and characteristic, newer ones from Frame, Interval and Curve.
class CTrackGeometry {
public:
    explicit CTrackGeometry(const CNodeGleis& track);

    double Length() const { return length_; }
    // The point at distance s (cm) from the start, 0 <= s <= Length().
    CVector PointAt(double s) const;
    CVector Start() const { return PointAt(0); }
    CVector End() const { return PointAt(length_); }
    // End 1 is the start; ends 2, 3 and 4 all lie at the piece's end point.
    CVector Endpunkt(int16_t end) const { return end == 1 ? Start() : End(); }
    // Points along the centre line no further apart than step (cm), start and end included.
    std::vector<CVector> Polyline(double step) const;
    // Points enough to draw the piece's extent: a curve lies within a centimetre of the lines
    // between them (a bulge beyond the ends included); a straight piece gives its two ends.
    std::vector<CVector> Outline() const;
    // The largest bend along the piece in 1/cm, so that a drawing can choose its sampling;
    // negative when the curve kind does not tell.
    double Curvature() const;
    // False when the curve kind is not understood and the piece is drawn straight.
    bool IsExact() const { return kind_ != Kind::Chord; }

private:
    enum class Kind { Classic, Line, Arc, Cubic, EEPCurve, Chord };

    struct Frame {
        CVector position;
        CVector axis[3];
        CVector Apply(const CVector& local) const;
    };
    struct ClassicCurve {
        CVector p, t, n, b;
        double k = 0, torsion = 0;
        CVector At(double s) const;
    };

    void ReadClassic(const CNodeGleis& track);
    void ReadNewFormat(const CNodeGleis& track);
    CVector LocalAt(double s) const; // newer format: metres in the track's own frame
    bool IsStraight() const;

    Kind kind_ = Kind::Chord;
    double length_ = 0; // cm
    ClassicCurve classic_;
    Frame frame_;
    double near_ = 0, far_ = 0; // metres
    CVector q_, d_;             // line: Q + s d; arc: centre, tangent, to-centre
    CVector w_;
    double radius_ = 0;
    const std::vector<CVector>* cubic_ = nullptr; // 4 coefficients per segment, held by the track
    CVector chordA_, chordB_;
};

} // namespace kavrin
