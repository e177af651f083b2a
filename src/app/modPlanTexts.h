#pragma once

#include <string>

namespace kavrin {

class CHoehenFilter;

// Texts of the plan window that need no Qt.

// The status line of the height filter: "Höhenfilter: nicht aktiv", or the lower and the upper
// limit in metres ("--" for a limit not in force), "Höhenfilter: -5m ... --" for example.
std::string HeightFilterStatusText(const CHoehenFilter& filter);

} // namespace kavrin
