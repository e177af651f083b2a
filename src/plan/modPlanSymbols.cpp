#include "plan/modPlanSymbols.h"

#include <algorithm>
#include <cmath>

#include "nodes/CTrackGeometry.h"
#include "plan/CPaintTarget.h"
#include "plan/CTrackBand.h"

namespace kavrin {

namespace {
constexpr double kLineWidth = 1;
constexpr double kSelectedWidth = 3;
constexpr double kMarkHalf = 3;
constexpr double kSignalSize = 7;
constexpr double kContactHalf = 2.5;
constexpr int kMaxCurvePoints = 2000;
constexpr uint32_t kSignalRed = 0x0000D0;
// Sizes in the world (cm) that symbols take once the zoom shows them larger than their
// smallest size in pixels: a house, a tree's crown, a mast or signal box, a load.
constexpr double kBuildingHalf = 400;
constexpr double kTreeRadius = 250;
constexpr double kTrackObjectHalf = 100;
constexpr double kGoodsRadius = 120;
// Smallest sizes in pixels.
constexpr double kBuildingHalfPx = 2.5;
constexpr double kTreeRadiusPx = 2;
constexpr double kTrackObjectHalfPx = 2;
// How far a symbol drawn in metres is filled with its colour lightened towards the background.
constexpr double kFillShare = 0.55;

double Width(bool selected) {
    return selected ? kSelectedWidth : kLineWidth;
}

// Offset position of a point on a track.
void Offset(const CPaintTarget& target, const CVector& p, double& x, double& y) {
    x = p.X + target.View().PaintXOffset;
    y = p.Y + target.View().PaintYOffset;
}

// The number of points of a curve: length / step + 1, truncated, at least the two ends; a
// degenerate step or an absurd length gives a bounded count.
int CurvePointCount(double length, double step) {
    double count = length / step + 1;
    if (!(count >= 2))
        return 2;
    return static_cast<int>(std::min(count, static_cast<double>(kMaxCurvePoints)));
}

// A wide track: its band on the ground layer, a road's fill above all bands, a rail's centre
// line above all fills.
void DrawTrackBand(CPaintTarget& target, int count, double bandPx, bool selected) {
    const CTrackBand::Look look = CTrackBand::LookOf(target.TrackStyle, target.Color, target.Background);
    const double* xs = target.Xs.data();
    const double* ys = target.Ys.data();
    target.Ground().SetPen(look.band, bandPx);
    target.Ground().Polyline(xs, ys, count);
    if (look.fill) {
        target.Fill().SetPen(*look.fill, std::max(1.0, bandPx - 2));
        target.Fill().Polyline(xs, ys, count);
    }
    if (look.centreLine || selected) {
        target.Draw().SetPen(target.Color, std::clamp(bandPx / 8, selected ? 2.0 : 1.0, 3.0));
        target.Draw().Polyline(xs, ys, count);
    }
}

// The sampled centre line in the target's buffers, as a band or a hairline, with marks at its
// ends when asked for.
void DrawTrackPoints(CPaintTarget& target, int count, bool selected) {
    Canvas& canvas = target.Draw();
    const double bandPx = target.TrackBandPixels();
    if (bandPx > 0) {
        DrawTrackBand(target, count, bandPx, selected);
    } else {
        canvas.SetPen(target.Color, Width(selected));
        canvas.Polyline(target.Xs.data(), target.Ys.data(), count);
    }
    if (target.TrackMarks) {
        canvas.SetPen(target.Color, kLineWidth);
        canvas.Circle(target.Xs.front(), target.Ys.front(), 2, false);
        canvas.Circle(target.Xs.back(), target.Ys.back(), 2, false);
    }
}

// The unit direction of a frame's Dir in the plan; east when it has none.
void PlanDirection(const CVector& dir, double& ux, double& uy) {
    const double length = std::sqrt(dir.X * dir.X + dir.Y * dir.Y);
    ux = 1;
    uy = 0;
    if (length > 0 && std::isfinite(length)) {
        ux = dir.X / length;
        uy = dir.Y / length;
    }
}

// A square of half size `half` (world units) turned to (ux, uy), with a stroke from its centre
// out through its front side: the way the object faces.
void DrawFacingSquare(CPaintTarget& target, double x, double y, double ux, double uy, double half,
                      bool filled, bool selected) {
    Canvas& canvas = target.Draw();
    const double halfPx = half / target.PixelSize();
    const bool inMetres = halfPx > kMarkHalf + 0.5;
    if (inMetres || filled) {
        canvas.SetPen(inMetres ? MixColor(target.Color, target.Background, kFillShare) : target.Color,
                      kLineWidth);
        canvas.TurnedSquare(x, y, halfPx, ux, uy, true);
    }
    canvas.SetPen(target.Color, Width(selected));
    if (inMetres || !filled)
        canvas.TurnedSquare(x, y, halfPx, ux, uy, false);
    // A filled square of a few pixels has no room for the stroke; seen from afar the plan
    // shows where buildings stand, not which way they face.
    if (inMetres || !filled) {
        const double reach = half + std::max(3 * target.PixelSize(), half / 2);
        canvas.Line(x, y, x + ux * reach, y + uy * reach);
    }
}

// A disc of radius `radius` (world units), filled with the colour, or lightened with a rim once
// it is drawn in metres.
void DrawDisc(CPaintTarget& target, double x, double y, double radius, bool selected) {
    Canvas& canvas = target.Draw();
    const double radiusPx = radius / target.PixelSize();
    if (radiusPx > kMarkHalf + 0.5) {
        canvas.SetPen(MixColor(target.Color, target.Background, kFillShare), kLineWidth);
        canvas.Circle(x, y, radiusPx, true);
        canvas.SetPen(target.Color, Width(selected));
        canvas.Circle(x, y, radiusPx, false);
        return;
    }
    canvas.SetPen(target.Color, Width(selected));
    canvas.Circle(x, y, radiusPx, true);
}
} // namespace

// Buildings are filled squares facing their way, landscape elements filled discs, objects along
// the tracks small open squares; each takes its size in metres once the zoom shows it larger
// than its size in pixels.
void DrawBuildingMark(CPaintTarget& target, double x, double y, const CVector& dir, bool selected) {
    const double pixel = target.PixelSize();
    if (!(pixel > 0))
        return;
    if (target.Placed == PlacedKind::Landscape) {
        DrawDisc(target, x, y, std::max(kTreeRadius, kTreeRadiusPx * pixel), selected);
        return;
    }
    double ux, uy;
    PlanDirection(dir, ux, uy);
    if (target.Placed == PlacedKind::TrackObject)
        DrawFacingSquare(target, x, y, ux, uy, std::max(kTrackObjectHalf, kTrackObjectHalfPx * pixel), false,
                         selected);
    else
        DrawFacingSquare(target, x, y, ux, uy, std::max(kBuildingHalf, kBuildingHalfPx * pixel), true,
                         selected);
}

// A goods item: a ring, filled once it is drawn in metres.
void DrawGoodsMark(CPaintTarget& target, double x, double y, bool selected) {
    const double pixel = target.PixelSize();
    if (!(pixel > 0))
        return;
    const double radiusPx = std::max(kGoodsRadius / pixel, kMarkHalf);
    Canvas& canvas = target.Draw();
    if (radiusPx > kMarkHalf + 0.5) {
        canvas.SetPen(MixColor(target.Color, target.Background, kFillShare), kLineWidth);
        canvas.Circle(x, y, radiusPx, true);
    }
    canvas.SetPen(target.Color,
                  radiusPx > kMarkHalf + 0.5 ? std::max(Width(selected), 1.5) : Width(selected));
    canvas.Circle(x, y, radiusPx, false);
}

void DrawSignalMark(CPaintTarget& target, double x, double y, double dx, double dy, bool selected) {
    Canvas& canvas = target.Draw();
    canvas.SetPen(target.Highlighting ? target.Color : kSignalRed, Width(selected));
    canvas.Triangle(x, y, dx, dy, selected ? kSignalSize + 3 : kSignalSize, true);
}

double SymbolReach(PlacedKind kind) {
    switch (kind) {
    case PlacedKind::Building:
        return kBuildingHalf;
    case PlacedKind::Landscape:
        return kTreeRadius;
    case PlacedKind::TrackObject:
        return kTrackObjectHalf;
    default:
        return kGoodsRadius;
    }
}

unsigned ContactColor(int setType) {
    if (setType == 0)
        return 0x0080FF; // signal or switch: orange
    if (setType >= 1 && setType <= 39)
        return 0xC06000; // vehicle: blue
    switch (setType) {
    case 256:
        return 0x00A000; // sound: green
    case 512:
        return 0xA000A0; // camera: purple
    case 768:
    case 2048:
        return 0x008080; // building, animation: olive
    default:
        return 0x606060;
    }
}

void DrawContactMark(CPaintTarget& target, double x, double y, int setType, bool selected) {
    target.Draw().SetPen(target.Highlighting ? target.Color : ContactColor(setType), Width(selected));
    target.Draw().Square(x, y, selected ? kContactHalf + 2 : kContactHalf, true);
}

// Chords of a known bend only need to be short enough that the curve strays from them by at
// most a quarter pixel (sagitta c^2 k / 8 <= 0.25 px). Truncating the point count can make a
// chord up to twice that long, which keeps the error within a pixel at worst.
double TrackSampleStep(const CPaintTarget& target, double curvature, double length) {
    double step = target.CurveStep();
    if (curvature > 0 && std::isfinite(curvature))
        step = std::max(step, std::sqrt(2 * target.PixelSize() / curvature));
    else if (curvature == 0)
        step = std::max(step, length);
    return step;
}

void SampleTrackLine(const CTrackGeometry& geometry, double step, std::vector<CVector>& points) {
    double length = geometry.Length();
    int count = CurvePointCount(length, step);
    points.resize(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        points[static_cast<size_t>(i)] = geometry.PointAt(i == count - 1 ? length : length * i / (count - 1));
}

void DrawTrackPolyline(CPaintTarget& target, const std::vector<CVector>& points, bool selected) {
    if (points.size() < 2)
        return;
    target.Xs.resize(points.size());
    target.Ys.resize(points.size());
    for (size_t i = 0; i < points.size(); ++i)
        Offset(target, points[i], target.Xs[i], target.Ys[i]);
    DrawTrackPoints(target, static_cast<int>(points.size()), selected);
}

void DrawTrackLine(CPaintTarget& target, const CTrackGeometry& geometry, bool selected) {
    thread_local std::vector<CVector> points;
    SampleTrackLine(geometry, TrackSampleStep(target, geometry.Curvature(), geometry.Length()), points);
    DrawTrackPolyline(target, points, selected);
}

void DrawStraightTrack(CPaintTarget& target, const CVector& start, const CVector& dir, double length,
                       bool selected) {
    target.Xs.resize(2);
    target.Ys.resize(2);
    Offset(target, start, target.Xs[0], target.Ys[0]);
    Offset(target, CVector(start.X + dir.X * length, start.Y + dir.Y * length, 0), target.Xs[1],
           target.Ys[1]);
    DrawTrackPoints(target, 2, selected);
}

// Names go to the label layer, which places them where they do not cover each other.
void DrawName(CPaintTarget& target, double x, double y, std::string_view name) {
    if (!name.empty() && !target.Highlighting)
        target.Labels().Add(x, y, std::string(name), target.Color, 5, -5);
}

TrackPlace TrackPlaceAt(const CTrackGeometry& geometry, double s) {
    double length = geometry.Length();
    s = std::clamp(std::isfinite(s) ? s : 0.0, 0.0, std::max(0.0, length));
    CVector p = geometry.PointAt(s);
    TrackPlace place{p.X, p.Y, p.Z};
    // The direction from a short stretch around the place; a piece too short keeps "east".
    double step = std::min(10.0, length / 2);
    if (step > 0) {
        CVector a = geometry.PointAt(std::max(0.0, s - step));
        CVector b = geometry.PointAt(std::min(length, s + step));
        double norm = std::hypot(b.X - a.X, b.Y - a.Y);
        if (norm > 0 && std::isfinite(norm)) {
            place.dx = (b.X - a.X) / norm;
            place.dy = (b.Y - a.Y) / norm;
        }
    }
    return place;
}

std::string ModelName(std::string_view modelPath) {
    size_t slash = modelPath.find_last_of("\\/");
    std::string_view file = slash == std::string_view::npos ? modelPath : modelPath.substr(slash + 1);
    size_t dot = file.rfind('.');
    return std::string(dot == std::string_view::npos || dot == 0 ? file : file.substr(0, dot));
}

} // namespace kavrin
