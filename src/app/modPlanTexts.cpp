#include "app/modPlanTexts.h"

#include "core/modTools.h"
#include "plan/CHoehenFilter.h"

namespace kavrin {

namespace {
std::string LimitText(bool active, float worldHeight) {
    return active ? FormatMessage("%1m", static_cast<double>(worldHeight) / 100) : FormatMessage("--");
}
} // namespace

std::string HeightFilterStatusText(const CHoehenFilter& filter) {
    std::string range = filter.Active()
                            ? FormatMessage("%1 ... %2", LimitText(filter.BottomActive(), filter.Bottom()),
                                            LimitText(filter.TopActive(), filter.Top()))
                            : FormatMessage("nicht aktiv");
    return FormatMessage("Höhenfilter: %1", range);
}

} // namespace kavrin
