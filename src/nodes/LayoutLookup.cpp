#include "nodes/LayoutLookup.h"

#include "document/CAnlage.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeLandschaft.h"

namespace kavrin {

std::vector<CNodeGleisSys*> TrackSystems(const CAnlage& anlage) {
    std::vector<CNodeGleisSys*> systems;
    if (!anlage.RootNode())
        return systems;
    for (const auto& chapter : anlage.RootNode()->SubNodes())
        if (auto* system = dynamic_cast<CNodeGleisSys*>(chapter.get()))
            systems.push_back(system);
    return systems;
}

CNodeGleisSys* FindGleisSys(const CAnlage& anlage, int16_t gleissystemId) {
    if (!anlage.RootNode())
        return nullptr;
    for (const auto& chapter : anlage.RootNode()->SubNodes())
        if (auto* system = dynamic_cast<CNodeGleisSys*>(chapter.get());
            system && system->ID() == gleissystemId)
            return system;
    return nullptr;
}

CNodeGleis* FindGleis(const CAnlage& anlage, int16_t gleissystemId, int32_t gleisId) {
    CNodeGleisSys* system = FindGleisSys(anlage, gleissystemId);
    return system ? system->FindGleis(gleisId) : nullptr;
}

CNodeKollektor* FindKollektor(const CAnlage& anlage, int32_t kollektorId) {
    if (kollektorId <= 0 || !anlage.RootNode())
        return nullptr;
    for (const auto& chapter : anlage.RootNode()->SubNodes())
        if (auto* kollektor = dynamic_cast<CNodeKollektor*>(chapter.get());
            kollektor && kollektor->ID() == kollektorId)
            return kollektor;
    return nullptr;
}

const CNodeLandschaft* FindTerrain(const CAnlage& anlage) {
    if (!anlage.RootNode())
        return nullptr;
    for (const auto& chapter : anlage.RootNode()->SubNodes())
        if (const auto* terrain = dynamic_cast<const CNodeLandschaft*>(chapter.get()))
            return terrain;
    return nullptr;
}

} // namespace kavrin
