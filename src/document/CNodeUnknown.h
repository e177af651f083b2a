#pragma once

#include "document/CNodeBase.h"

namespace kavrin {

// Every element without a class of its own: kept whole and written back as read.
class CNodeUnknown : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeUnknown"; }
};

// The document element of a layout ("sutrackp"): written under its own name and attributes.
class CNodeRoot : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeRoot"; }
};

} // namespace kavrin
