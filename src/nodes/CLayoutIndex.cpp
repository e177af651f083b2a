#include "nodes/CLayoutIndex.h"

#include "document/CAnlage.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeKollektor.h"

namespace kavrin {

// The first of an id counts, as with the lookups that walk the chapters.
CLayoutIndex::CLayoutIndex(const CAnlage& anlage) {
    if (!anlage.RootNode())
        return;
    for (const auto& chapter : anlage.RootNode()->SubNodes()) {
        if (auto* kollektor = dynamic_cast<CNodeKollektor*>(chapter.get()))
            kollektors_.emplace(kollektor->ID(), kollektor);
        else if (auto* system = dynamic_cast<CNodeGleisSys*>(chapter.get()))
            systems_.emplace(system->ID(), system);
    }
}

CNodeKollektor* CLayoutIndex::Kollektor(int32_t kollektorId) const {
    if (kollektorId <= 0)
        return nullptr;
    auto found = kollektors_.find(kollektorId);
    return found == kollektors_.end() ? nullptr : found->second;
}

CNodeGleis* CLayoutIndex::Gleis(int16_t gleissystemId, int32_t gleisId) const {
    auto found = systems_.find(gleissystemId);
    return found == systems_.end() ? nullptr : found->second->FindGleis(gleisId);
}

} // namespace kavrin
