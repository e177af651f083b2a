#pragma once

#include "Layout.h"
#include "XmlTextWriter.h"

#include <string>

namespace kavrin::gen {

// The terrain grid that covers a layout: cells along x and y.
struct TerrainCells {
    long long x = 0;
    long long y = 0;
};
TerrainCells terrainCells(const Layout& layout);

/// Writes the chapters after the scenery: cameras, settings, options, weather, timetable, script,
/// 3-D camera tour, terrain and description.
class EnvironmentWriter {
public:
    EnvironmentWriter(const Layout& layout, XmlTextWriter& xml) : layout_(layout), xml_(xml) {}

    void write();

private:
    void writeCameras();
    void writeSettings();
    void writeOptions();
    void writeWeather();
    void writeScript();
    void writeCameraTour();
    void writeTerrain();
    void writeAtlas(int index, int textureId, double u, double v);
    std::string fileName(std::string_view suffix) const;

    const Layout& layout_;
    XmlTextWriter& xml_;
};

} // namespace kavrin::gen
