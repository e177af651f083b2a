#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kavrin {

// How a track looks once the zoom shows its real width: a band of that width instead of a
// hairline. Rail-bound systems get a darker centre line on their band; a road is a light fill
// inside a border of the road colour; water a light band. Widths come from a table per
// track-style group, and for roads from the track style's name where it tells the lanes.
class CTrackBand {
public:
    // A band is drawn once it is wider than this many pixels.
    static constexpr double kMinPixels = 3;
    // No track is wider than this (cm): the quick test that a zoom shows only hairlines.
    static constexpr double kWidest = 700;

    // The real width in cm of a track of a track-style group (1 Eisenbahn ... 4 Wasserwege)
    // with a model of that name; 0 for tracks that stay hairlines (invisible guide tracks,
    // railings, styles outside the groups).
    static double WidthOf(int style, std::string_view modelName);

    struct Look {
        uint32_t band;
        std::optional<uint32_t> fill; // inside the band, narrower
        bool centreLine;              // in the track colour itself
    };
    // The colours of a band of the group drawn in `color` on `background`.
    static Look LookOf(int style, uint32_t color, uint32_t background);
};

// `color` moved towards `other` by `share` (0 keeps it, 1 gives `other`).
uint32_t MixColor(uint32_t color, uint32_t other, double share);

} // namespace kavrin
