#include "app/modPlanTexts.h"

#include <charconv>
#include <cmath>

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

std::string ColourMapStatusText(CTerrainBitmaps::Problem problem) {
    switch (problem) {
    case CTerrainBitmaps::Problem::Missing:
        return FormatMessage("Farbkarte fehlt");
    case CTerrainBitmaps::Problem::Invalid:
        return FormatMessage("Farbkarte unbrauchbar");
    case CTerrainBitmaps::Problem::WrongSize:
        return FormatMessage("Farbkarte hat die falsche Größe");
    default:
        return {};
    }
}

std::string ZoomFactorText(float factor) {
    const double value = factor;
    const double scale = value < 10 ? 100 : value < 100 ? 10 : 1;
    return FormatMessage("%1", std::round(value * scale) / scale);
}

bool ReadZoomFactor(const std::string& text, float& factor) {
    std::string plain(Trim(text));
    for (char& c : plain)
        if (c == ',')
            c = '.';
    double value = 0;
    const char* last = plain.data() + plain.size();
    auto [end, error] = std::from_chars(plain.data(), last, value);
    if (plain.empty() || error != std::errc() || end != last || !(value > 0) || !std::isfinite(value))
        return false;
    factor = static_cast<float>(value);
    return true;
}

} // namespace kavrin
