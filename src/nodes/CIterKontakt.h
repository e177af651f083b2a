#pragma once

#include "nodes/CIterChildren.h"
#include "nodes/CNodeKontakt.h"

namespace kavrin {

// Walks the contacts of a track.
class CIterKontakt final : public CIterChildren<CNodeKontakt> {};

} // namespace kavrin
