#pragma once

// The classes the factory hands out. Elements whose class does not exist yet are kept whole
// by the unknown node under their future class name, so error reports already name them.
#include "document/CNodeUnknown.h"
#include "nodes/CNodeBewegTeil.h"
#include "nodes/CNodeCharakteristik.h"
#include "nodes/CNodeDreibein.h"
#include "nodes/CNodeGleis.h"
#include "nodes/CNodeGleisOrt.h"
#include "nodes/CNodeGleisSys.h"
#include "nodes/CNodeGleisverbindung.h"
#include "nodes/CNodeGood.h"
#include "nodes/CNodeGoods.h"
#include "nodes/CNodeImmoSammlung.h"
#include "nodes/CNodeImmobilie.h"
#include "nodes/CNodeKollektor.h"
#include "nodes/CNodeKontakt.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/CNodeMeldung.h"
#include "nodes/CNodeModell.h"
#include "nodes/CNodeVektor.h"

namespace kavrin {

#define KAVRIN_PLAIN_NODE(ClassNameId)                                                                       \
    class ClassNameId : public CNodeUnknown {                                                                \
    public:                                                                                                  \
        const char* ClassName() const override { return #ClassNameId; }                                      \
    };

KAVRIN_PLAIN_NODE(CNodeSignal)
KAVRIN_PLAIN_NODE(CNodeWartender)
KAVRIN_PLAIN_NODE(CNodeFuhrpark)
KAVRIN_PLAIN_NODE(CNodeZugverband)
KAVRIN_PLAIN_NODE(CNodeKameras)
KAVRIN_PLAIN_NODE(CNodeKamera)
KAVRIN_PLAIN_NODE(CNodeSettings)
KAVRIN_PLAIN_NODE(CNodeOptions)
KAVRIN_PLAIN_NODE(CNodeWeather)
KAVRIN_PLAIN_NODE(CNodeWeatherLocal)
KAVRIN_PLAIN_NODE(CNodeTimeTable)
KAVRIN_PLAIN_NODE(CNodeBeschreibung)

#undef KAVRIN_PLAIN_NODE

} // namespace kavrin
