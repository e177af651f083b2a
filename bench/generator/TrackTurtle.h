#pragma once

#include "Layout.h"
#include "TrackSystem.h"
#include "Vec3.h"

namespace kavrin::gen {

/// A turn given by its exact cosine and sine. All turns used are Pythagorean (rational cosine and
/// sine), so with suitable radii every track end lands on a whole centimetre. That matters because
/// the file keeps only seven significant digits: far from the origin a coordinate is exact only if
/// it is a whole number of centimetres.
struct Turn {
    double cos = 1;
    double sin = 0;
};

namespace turns {
inline constexpr Turn kSmall{24.0 / 25, 7.0 / 25};       // 16.26 deg
inline constexpr Turn kMedium{117.0 / 125, 44.0 / 125};  // 20.61 deg
inline constexpr Turn kTurnout{323.0 / 325, 36.0 / 325}; // 6.36 deg, a switch's diverging angle
} // namespace turns

inline constexpr int kLeft = 1;
inline constexpr int kRight = -1;

/// Lays consecutive tracks in one track system, starting at a point and heading, and connects each
/// new track to the open end of the previous one. Switches hand out further turtles for their
/// branches. Once the layout's track budget is spent, the turtle keeps moving but lays nothing.
class TrackTurtle {
public:
    TrackTurtle(Layout& layout, int systemId, const TrackStyle& style, Vec3 start, double headingX,
                double headingY);

    void setStyle(const TrackStyle& style) { style_ = &style; }
    void setCant(double radians) { cant_ = radians; }
    /// Connections made while set carry the "virtual link" flag.
    void setVirtualLinks(bool on) { virtualLinks_ = on; }

    /// A straight of horizontal length run that climbs by rise. Returns the track id, 0 if none.
    int straight(double run, double rise = 0);
    /// Straights of equal length not longer than maxPiece; returns the id of the first.
    int straights(double run, double maxPiece, double rise = 0);
    int arc(double radius, Turn turn, int side);
    /// A 90 degree curve made of five pieces; radius must be a multiple of 125 cm.
    int quarterTurn(double radius, int side);
    /// Two opposite arcs: a parallel shift by 2 r (1 - cos) towards side.
    int sCurve(double radius, Turn turn, int side);

    /// A switch whose ends 2, 3 (and 4) lie at its end point; the turtle continues on end 2.
    int turnout(TrackKind kind, double length, int setting);
    /// A turtle continuing from the end point of the last turnout on the given end.
    TrackTurtle branch(int endNo) const;
    /// A switch laid against the direction of travel: the open end joins its end 2, the turtle
    /// continues from its start, and other turtles merge into its branch ends with joinEnd().
    int mergingTurnout(TrackKind kind, double length, int setting);
    int bufferStop(double length);

    /// Connects the open end to an end that lies at the current point (a merge or a closed loop).
    void joinEnd(int trackId, int endNo);

    Vec3 position() const { return pos_; }
    double headingX() const { return hx_; }
    double headingY() const { return hy_; }
    int lastTrack() const { return lastTrack_; }
    int lastTurnout() const { return lastTurnout_; }

private:
    TrackPiece* create(TrackKind kind, const Frame& frame, double curvature, double length, Vec3 end);
    TrackPiece* lay(TrackKind kind, const Frame& frame, double curvature, double length, Vec3 end);
    int numberSwitch(TrackPiece& piece, int setting);
    void connectOpenEnd(int trackId, int endNo);
    void setOpenEnd(int trackId, int endNo);

    Layout& layout_;
    int systemId_;
    const TrackStyle* style_;
    Vec3 pos_;
    double hx_;
    double hy_;
    double cant_ = 0;
    bool virtualLinks_ = false;
    int openTrack_ = 0;
    int openEnd_ = 0;
    int lastTrack_ = 0;
    int lastTurnout_ = 0;
};

} // namespace kavrin::gen
