#pragma once

#include "document/CNodeBase.h"

namespace kavrin {

// "Modell": carried as read; its attributes and children ("Achse" ...) are kept by the base.
class CNodeModell : public CNodeBase {
public:
    const char* ClassName() const override { return "CNodeModell"; }
};

} // namespace kavrin
