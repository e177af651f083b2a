#pragma once

#include <string>

#include "EnvironmentWriter.h"

namespace kavrin::gen {

// The four terrain bitmaps a layout names (colour, height, texture, texture index), written
// beside it as 24-bit BMP files of the terrain grid's size, so that the layout opens without
// missing files. The colour map is a gently varied meadow green.
bool writeTerrainBitmaps(const std::string& layoutPath, const TerrainCells& cells, unsigned seed);

} // namespace kavrin::gen
