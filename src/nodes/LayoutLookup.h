#pragma once

#include <cstdint>
#include <vector>

namespace kavrin {

class CAnlage;
class CNodeGleis;
class CNodeGleisSys;
class CNodeKollektor;
class CNodeLandschaft;

// The track systems of a layout, in file order.
std::vector<CNodeGleisSys*> TrackSystems(const CAnlage& anlage);
CNodeGleisSys* FindGleisSys(const CAnlage& anlage, int16_t gleissystemId);
CNodeGleis* FindGleis(const CAnlage& anlage, int16_t gleissystemId, int32_t gleisId);
// The collector of that id (a chapter "Kollektor"); none for an id of 0 or less.
CNodeKollektor* FindKollektor(const CAnlage& anlage, int32_t kollektorId);
// The terrain ("Schandlaft"), or null when the layout has none.
const CNodeLandschaft* FindTerrain(const CAnlage& anlage);

} // namespace kavrin
