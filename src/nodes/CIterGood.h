#pragma once

#include "nodes/CIterChildren.h"
#include "nodes/CNodeGood.h"

namespace kavrin {

// Walks the goods of the goods list ("Goods").
class CIterGood final : public CIterChildren<CNodeGood> {};

} // namespace kavrin
