#include "LayoutGenerator.h"

#include "LayoutWriter.h"
#include "LocalTrafficBuilder.h"
#include "OutputSink.h"
#include "RailLineBuilder.h"
#include "Rng.h"
#include "SceneryBuilder.h"
#include "TrainBuilder.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kavrin::gen {
namespace {
// Tiles sit on a grid. A tile's content stays within 560 m of its centre in x and between -270 m and
// +310 m in y (see SceneryBuilder), so neighbours never overlap.
constexpr double kTilePitchX = 120000;
constexpr double kTilePitchY = 60000;
constexpr double kTileCentreOffsetY = -2000; // centres that y range on the grid line
constexpr double kStraightChoices[] = {30000, 32000, 36000};
constexpr double kDemoStraight = 32000;
constexpr long long kNominalBuildingsPerTile = 150;
constexpr double kBytesPerMegabyte = 1048576;
constexpr int kCalibrationTiles = 17;
// Streams of the random generator: one per tile for the network and one for its scenery.
constexpr std::uint64_t kSceneryStreams = 1ull << 32;

Vec3 tileOrigin(int index, int tiles) {
    const int columns = std::max(1, static_cast<int>(std::ceil(std::sqrt(tiles / 2.0))));
    const int rows = (tiles + columns - 1) / columns;
    const double column = index % columns - (columns - 1) / 2.0;
    const double row = index / columns - (rows - 1) / 2.0;
    return {column * kTilePitchX, row * kTilePitchY + kTileCentreOffsetY, 0};
}

Frame lookingAt(Vec3 eye, Vec3 target) {
    Vec3 dir = target - eye;
    dir = dir * (1 / length(dir));
    Vec3 nor = cross({0, 0, 1}, dir);
    nor = nor * (1 / length(nor));
    return {eye, dir, nor, cross(dir, nor)};
}
} // namespace

LayoutGenerator::LayoutGenerator(const GeneratorOptions& options, std::string name)
    : options_(options), name_(std::move(name)) {}

std::unique_ptr<Layout> LayoutGenerator::generate() const {
    return build(tileCount());
}

int LayoutGenerator::tileCount() const {
    if (options_.tracks >= 0) {
        return tilesForTracks();
    }
    if (options_.sizeMegabytes > 0) {
        return tilesForSize();
    }
    if (options_.buildings >= 0) {
        return static_cast<int>(
            std::max(1LL, (options_.buildings + kNominalBuildingsPerTile - 1) / kNominalBuildingsPerTile));
    }
    return 1;
}

// Tiles differ in size, and a tile's network depends only on the seed and its number: count them
// one by one in a scratch layout.
int LayoutGenerator::tilesForTracks() const {
    long long tracks = 0;
    int tiles = 0;
    do {
        Layout scratch(options_.format, -1);
        layNetwork(scratch, tiles, {});
        tracks += scratch.trackCount();
        ++tiles;
    } while (tracks < options_.tracks);
    return tiles;
}

// The size grows linearly with the number of tiles; measure two points of that line.
int LayoutGenerator::tilesForSize() const {
    const double target = options_.sizeMegabytes * kBytesPerMegabyte;
    const double one = static_cast<double>(measuredSize(1));
    const double perTile =
        (static_cast<double>(measuredSize(kCalibrationTiles)) - one) / (kCalibrationTiles - 1);
    return std::max(1, 1 + static_cast<int>(std::lround((target - one) / perTile)));
}

std::uint64_t LayoutGenerator::measuredSize(int tiles) const {
    const auto layout = build(tiles);
    OutputSink counter;
    LayoutWriter(*layout, counter).write();
    return counter.bytesWritten();
}

std::unique_ptr<Layout> LayoutGenerator::build(int tiles) const {
    auto layout = std::make_unique<Layout>(options_.format, options_.tracks);
    layout->name = name_;
    layout->description = description(tiles);
    // The tram system's own frame is not an offset for its tracks; readers must ignore it.
    layout->system(kTramway).frame().pos = {0, -10000, 0};
    std::vector<TileAnchors> anchors;
    for (int i = 0; i < tiles; ++i) {
        anchors.push_back(layNetwork(*layout, i, tileOrigin(i, tiles)));
    }
    addScenery(*layout, anchors);
    addCameras(*layout, anchors.front());
    return layout;
}

TileAnchors LayoutGenerator::layNetwork(Layout& layout, int tile, Vec3 origin) const {
    Rng rng = Rng::stream(options_.seed, static_cast<std::uint64_t>(tile));
    TileAnchors anchors;
    anchors.origin = origin;
    anchors.halfStraight = options_.demo ? kDemoStraight : kStraightChoices[rng.below(3)];
    RailLineBuilder(layout, rng, anchors).build();
    LocalTrafficBuilder(layout, rng, anchors).build();
    return anchors;
}

void LayoutGenerator::addScenery(Layout& layout, const std::vector<TileAnchors>& tiles) const {
    const auto count = static_cast<long long>(tiles.size());
    for (long long i = 0; i < count; ++i) {
        const auto& anchors = tiles[static_cast<std::size_t>(i)];
        Rng rng = Rng::stream(options_.seed, kSceneryStreams + static_cast<std::uint64_t>(i));
        long long quota = -1;
        if (options_.buildings >= 0) {
            quota = options_.buildings / count + (i < options_.buildings % count ? 1 : 0);
        }
        SceneryBuilder(layout, rng, anchors).build(quota);
        TrainBuilder(layout, rng, anchors, static_cast<int>(i + 1)).build();
    }
}

void LayoutGenerator::addCameras(Layout& layout, const TileAnchors& first) const {
    const Vec3 o = first.origin;
    const double half = first.halfStraight;
    layout.addCamera("Übersicht", lookingAt(o + Vec3{-half, -42000, 30000}, o));
    layout.addCamera("Bahnhof", lookingAt(o + Vec3{-8000, -32000, 2500}, o + Vec3{0, -20000, 0}));
    layout.addCamera("Brücke über die Straße",
                     lookingAt(o + Vec3{9000, 14000, 900}, o + Vec3{0, 19750, 600}));
    layout.addCamera("Straßenbahn", lookingAt(o + Vec3{-14000, -9000, 1200}, o + Vec3{-13000, -3900, 0}));
    layout.addCamera("Kanal & Klappbrücke", lookingAt(o + Vec3{-2000, 27000, 600}, o + Vec3{2500, 25000, 0}));
}

std::string LayoutGenerator::description(int tiles) const {
    if (options_.demo) {
        return "Demo-Anlage von Kavrin: zweigleisige Hauptbahn mit Bahnhof, Überholgleisen, Ladegleis und "
               "Brücke, eine Straßenbahn mit Haltestelle, Straßen mit Bushaltestelle und Klappbrücke, ein "
               "Kanal. Alle Objekte sind frei erfunden.";
    }
    return "Synthetische Anlage von kavrin-gen: " + std::to_string(tiles) + " Kacheln, Startwert " +
           std::to_string(options_.seed) + ".";
}

} // namespace kavrin::gen
