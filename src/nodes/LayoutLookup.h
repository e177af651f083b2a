#pragma once

#include <cstdint>
#include <vector>

namespace kavrin {

class CAnlage;
class CNodeGleis;
class CNodeGleisSys;

// The track systems of a layout, in file order.
std::vector<CNodeGleisSys*> TrackSystems(const CAnlage& anlage);
CNodeGleisSys* FindGleisSys(const CAnlage& anlage, int16_t gleissystemId);
CNodeGleis* FindGleis(const CAnlage& anlage, int16_t gleissystemId, int32_t gleisId);

} // namespace kavrin
