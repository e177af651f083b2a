#pragma once

#include "nodes/CIterChildren.h"
#include "nodes/CNodeGleis.h"

namespace kavrin {

// Walks the tracks of a track system ("Gleissystem").
class CIterGleis final : public CIterChildren<CNodeGleis> {};

} // namespace kavrin
