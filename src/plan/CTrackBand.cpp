#include "plan/CTrackBand.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <string>

namespace kavrin {

namespace {
// cm: rail and tram about their gauge, a road lane, a waterway.
constexpr std::array<double, 4> kDefaultWidth = {140, 140, 300, 500};
constexpr double kLane = 350;
constexpr uint32_t kWhite = 0xFFFFFF;

bool Contains(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}
} // namespace

double CTrackBand::WidthOf(int style, std::string_view modelName) {
    if (style < 1 || style > static_cast<int>(kDefaultWidth.size()))
        return 0;
    const std::string name = Lower(modelName);
    if (Contains(name, "unsichtbar") || Contains(name, "invisible") || Contains(name, "gelaender") ||
        Contains(name, "zaun"))
        return 0;
    if (style == 3) {
        if (Contains(name, "2spur") || Contains(name, "zweispur") || Contains(name, "twoway") ||
            Contains(name, "stadtstr"))
            return 2 * kLane;
        if (Contains(name, "1spur") || Contains(name, "einspur") || Contains(name, "oneway"))
            return kLane;
    }
    return kDefaultWidth[static_cast<size_t>(style - 1)];
}

CTrackBand::Look CTrackBand::LookOf(int style, uint32_t color, uint32_t background) {
    switch (style) {
    case 1:
        return {MixColor(color, background, 0.5), std::nullopt, true};
    case 2:
        return {MixColor(color, background, 0.6), std::nullopt, true};
    case 3:
        return {color, MixColor(color, kWhite, 0.6), false};
    default:
        return {MixColor(color, background, 0.55), std::nullopt, false};
    }
}

uint32_t MixColor(uint32_t color, uint32_t other, double share) {
    share = std::clamp(std::isfinite(share) ? share : 0.0, 0.0, 1.0);
    uint32_t mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const double a = (color >> shift) & 0xFF, b = (other >> shift) & 0xFF;
        mixed |= static_cast<uint32_t>(std::lround(a + (b - a) * share)) << shift;
    }
    return mixed;
}

} // namespace kavrin
