#pragma once

#include <string>

#include "plan/CTerrainBitmaps.h"

namespace kavrin {

class CHoehenFilter;

// Texts of the plan window that need no Qt.

// The status line of the height filter: "Höhenfilter: nicht aktiv", or the lower and the upper
// limit in metres ("--" for a limit not in force), "Höhenfilter: -5m ... --" for example.
std::string HeightFilterStatusText(const CHoehenFilter& filter);

// The status line's word on a colour map the layout names but the plan cannot show
// ("Farbkarte fehlt"); empty when there is nothing to say.
std::string ColourMapStatusText(CTerrainBitmaps::Problem problem);

// The zoom factor as the zoom box shows it: "4", or between the steps with as many decimals
// as the size of the factor calls for, in the user's format ("2,37", "12,5", "140").
std::string ZoomFactorText(float factor);
// A factor typed into the zoom box, with "," or "." as decimal separator; false when the text
// is no positive number.
bool ReadZoomFactor(const std::string& text, float& factor);

} // namespace kavrin
