#pragma once

#include "CommandLine.h"
#include "Layout.h"
#include "TileAnchors.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kavrin::gen {

/// Decides how many tiles a layout needs and builds them: first every tile's track network, then
/// scenery and trains, so that exact track and building counts can be met.
class LayoutGenerator {
public:
    /// name: base name for the terrain and script files the layout refers to.
    LayoutGenerator(const GeneratorOptions& options, std::string name);

    std::unique_ptr<Layout> generate() const;

private:
    int tileCount() const;
    int tilesForTracks() const;
    int tilesForSize() const;
    std::uint64_t measuredSize(int tiles) const;
    std::unique_ptr<Layout> build(int tiles) const;
    TileAnchors layNetwork(Layout& layout, int tile, Vec3 origin) const;
    void addScenery(Layout& layout, const std::vector<TileAnchors>& tiles) const;
    void addCameras(Layout& layout, const TileAnchors& first) const;
    std::string description(int tiles) const;

    GeneratorOptions options_;
    std::string name_;
};

} // namespace kavrin::gen
