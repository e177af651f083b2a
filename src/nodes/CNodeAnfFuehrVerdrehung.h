#pragma once

// Declared beside the characteristic, which it always accompanies.
#include "nodes/CNodeCharakteristik.h"
