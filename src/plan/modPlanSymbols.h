#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plan/CPaintTarget.h"

namespace kavrin {

class C3Bein;
class CPaintTarget;
class CTrackGeometry;
class CVector;

// The marks of the plan, shared by the node classes so that each kind looks the same wherever
// it is drawn. Positions are world coordinates with the paint offsets already added.

// A building or structure by the target's PlacedKind: a turned square with a stroke in its
// viewing direction for buildings and objects along the tracks, a filled disc for landscape
// elements; in metres once the zoom allows, in pixels below.
void DrawBuildingMark(CPaintTarget& target, double x, double y, const CVector& dir, bool selected);
// A goods item: a small ring.
void DrawGoodsMark(CPaintTarget& target, double x, double y, bool selected);
// A signal: a red triangle pointing along its track.
void DrawSignalMark(CPaintTarget& target, double x, double y, double dx, double dy, bool selected);
// A contact: a small square whose colour tells its kind.
void DrawContactMark(CPaintTarget& target, double x, double y, int setType, bool selected);
// A track's centre line, sampled along its geometry, as a hairline or, once the zoom shows its
// real width, as a band; marks at its ends with TrackMarks.
void DrawTrackLine(CPaintTarget& target, const CTrackGeometry& geometry, bool selected);
// The chord step that samples a track of this bend (1/cm; 0 straight, negative unknown) and
// length finely enough for the target.
double TrackSampleStep(const CPaintTarget& target, double curvature, double length);
// The centre line at points no further apart than `step`, in world coordinates.
void SampleTrackLine(const CTrackGeometry& geometry, double step, std::vector<CVector>& points);
// A centre line sampled before, with marks at its ends with TrackMarks.
void DrawTrackPolyline(CPaintTarget& target, const std::vector<CVector>& points, bool selected);
// A straight piece: one line from its start along its direction.
void DrawStraightTrack(CPaintTarget& target, const CVector& start, const CVector& dir, double length,
                       bool selected);
// A name beside a mark, in the target's colour, handed to the label layer.
void DrawName(CPaintTarget& target, double x, double y, std::string_view name);

// How far the symbol of a placed object reaches from its position once drawn in metres (cm).
double SymbolReach(PlacedKind kind);

// The model's name as the user knows it: the file name of a model path without folder and
// extension ("\Immobilien\Haus_1.3dm" -> "Haus_1").
std::string ModelName(std::string_view modelPath);

// A place along a track: the point and the unit direction of travel there.
struct TrackPlace {
    double x = 0, y = 0, z = 0;
    double dx = 1, dy = 0;
};
TrackPlace TrackPlaceAt(const CTrackGeometry& geometry, double s);

// The colour of a contact kind on the plan.
unsigned ContactColor(int setType);

} // namespace kavrin
