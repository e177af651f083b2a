#include "TrackTurtle.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace kavrin::gen {
namespace {
// Ends that are meant to meet must do so far more closely than the 0.1 cm the simulator achieves.
constexpr double kJoinTolerance = 0.01;

// A heading that should be exactly axis-parallel comes out of the rotations with a residue of about
// 1e-16; written, that would read "5.551115E-17" instead of "0".
double withoutNoise(double component) {
    return std::abs(component) < 1e-12 ? 0 : component;
}
} // namespace

TrackTurtle::TrackTurtle(Layout& layout, int systemId, const TrackStyle& style, Vec3 start, double headingX,
                         double headingY)
    : layout_(layout), systemId_(systemId), style_(&style), pos_(start), hx_(headingX), hy_(headingY) {}

int TrackTurtle::straight(double run, double rise) {
    const Vec3 horizontal{hx_ * run, hy_ * run, 0};
    const double len = std::sqrt(run * run + rise * rise);
    Frame frame;
    frame.pos = pos_;
    frame.dir = {horizontal.x / len, horizontal.y / len, rise / len};
    frame.nor = {-hy_, hx_, 0};
    frame.bin = cross(frame.dir, frame.nor);
    const Vec3 end = pos_ + horizontal + Vec3{0, 0, rise};
    TrackPiece* piece = lay(TrackKind::Plain, frame, 0, len, end);
    return piece != nullptr ? piece->id : 0;
}

int TrackTurtle::straights(double run, double maxPiece, double rise) {
    // Pieces of whole centimetres keep every joint on a whole centimetre.
    const long long total = std::llround(run);
    const long long count = static_cast<long long>(std::ceil(static_cast<double>(total) / maxPiece));
    int first = 0;
    for (long long i = 0; i < count; ++i) {
        const long long piece = total / count + (i < total % count ? 1 : 0);
        const int id = straight(static_cast<double>(piece), rise * static_cast<double>(piece) / total);
        first = i == 0 ? id : first;
    }
    return first;
}

int TrackTurtle::arc(double radius, Turn turn, int side) {
    const Vec3 heading{hx_, hy_, 0};
    const Vec3 left{-hy_, hx_, 0};
    const Vec3 end = pos_ + heading * (radius * turn.sin) + left * (side * radius * (1 - turn.cos));
    TrackPiece* piece = lay(TrackKind::Plain, uprightFrame(pos_, hx_, hy_), side / radius,
                            radius * std::atan2(turn.sin, turn.cos), end);
    if (piece != nullptr) {
        piece->cant = side * cant_;
    }
    hx_ = withoutNoise(hx_ * turn.cos + left.x * side * turn.sin);
    hy_ = withoutNoise(hy_ * turn.cos + left.y * side * turn.sin);
    return piece != nullptr ? piece->id : 0;
}

int TrackTurtle::quarterTurn(double radius, int side) {
    // 16.26 + 20.61 + 16.26 + 16.26 + 20.61 = 90 degrees; every intermediate heading has a cosine and
    // sine with a denominator dividing 125.
    const int first = arc(radius, turns::kSmall, side);
    arc(radius, turns::kMedium, side);
    arc(radius, turns::kSmall, side);
    arc(radius, turns::kSmall, side);
    arc(radius, turns::kMedium, side);
    return first;
}

int TrackTurtle::sCurve(double radius, Turn turn, int side) {
    const int first = arc(radius, turn, side);
    arc(radius, turn, -side);
    return first;
}

int TrackTurtle::turnout(TrackKind kind, double length, int setting) {
    const Vec3 end = pos_ + Vec3{hx_ * length, hy_ * length, 0};
    TrackPiece* piece = lay(kind, uprightFrame(pos_, hx_, hy_), 0, length, end);
    lastTurnout_ = piece != nullptr ? numberSwitch(*piece, setting) : 0;
    return lastTurnout_;
}

TrackTurtle TrackTurtle::branch(int endNo) const {
    TrackTurtle other = *this;
    other.setOpenEnd(lastTurnout_, endNo);
    other.lastTrack_ = lastTurnout_;
    return other;
}

int TrackTurtle::mergingTurnout(TrackKind kind, double length, int setting) {
    const Vec3 toe = pos_ + Vec3{hx_ * length, hy_ * length, 0};
    TrackPiece* piece = create(kind, uprightFrame(toe, -hx_, -hy_), 0, length, pos_);
    const int id = piece != nullptr ? numberSwitch(*piece, setting) : 0;
    connectOpenEnd(id, kEnd);
    setOpenEnd(id, kStart);
    pos_ = toe;
    lastTrack_ = id;
    lastTurnout_ = id;
    return id;
}

int TrackTurtle::bufferStop(double length) {
    const Vec3 end = pos_ + Vec3{hx_ * length, hy_ * length, 0};
    TrackPiece* piece = lay(TrackKind::BufferStop, uprightFrame(pos_, hx_, hy_), 0, length, end);
    return piece != nullptr ? piece->id : 0;
}

void TrackTurtle::joinEnd(int trackId, int endNo) {
    if (trackId == 0 || openTrack_ == 0) {
        return;
    }
    const Vec3 other = layout_.system(systemId_).piece(trackId).endPoint(endNo);
    if (length(other - pos_) > kJoinTolerance) {
        throw std::logic_error("track ends do not meet at track " + std::to_string(trackId) + " in system " +
                               std::to_string(systemId_));
    }
    connectOpenEnd(trackId, endNo);
    openTrack_ = 0;
}

TrackPiece* TrackTurtle::create(TrackKind kind, const Frame& frame, double curvature, double len, Vec3 end) {
    TrackPiece* piece = layout_.newTrack(systemId_);
    if (piece == nullptr) {
        return nullptr;
    }
    piece->kind = kind;
    piece->style = style_;
    piece->frame = frame;
    piece->curvature = curvature;
    piece->length = len;
    piece->end = end;
    layout_.noteModel(style_->gsbname);
    layout_.include(frame.pos);
    layout_.include(end);
    return piece;
}

TrackPiece* TrackTurtle::lay(TrackKind kind, const Frame& frame, double curvature, double len, Vec3 end) {
    TrackPiece* piece = create(kind, frame, curvature, len, end);
    pos_ = end;
    const int id = piece != nullptr ? piece->id : 0;
    connectOpenEnd(id, kStart);
    setOpenEnd(id, kEnd);
    lastTrack_ = id;
    return piece;
}

int TrackTurtle::numberSwitch(TrackPiece& piece, int setting) {
    piece.keyId = layout_.nextKeyId();
    piece.target = layout_.nextTarget();
    piece.setting = setting;
    return piece.id;
}

void TrackTurtle::connectOpenEnd(int trackId, int endNo) {
    if (openTrack_ != 0 && trackId != 0) {
        layout_.system(systemId_).connect(openTrack_, openEnd_, trackId, endNo, virtualLinks_);
    }
}

void TrackTurtle::setOpenEnd(int trackId, int endNo) {
    openTrack_ = trackId;
    openEnd_ = endNo;
}

} // namespace kavrin::gen
