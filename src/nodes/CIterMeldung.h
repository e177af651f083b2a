#pragma once

#include "nodes/CIterChildren.h"
#include "nodes/CNodeMeldung.h"

namespace kavrin {

// Walks the signal messages of a track.
class CIterMeldung final : public CIterChildren<CNodeMeldung> {};

} // namespace kavrin
