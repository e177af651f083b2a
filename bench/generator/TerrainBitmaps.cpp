#include "TerrainBitmaps.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

namespace kavrin::gen {

namespace {

struct Rgb {
    uint8_t r, g, b;
};

void put32(std::vector<uint8_t>& out, uint32_t v) {
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<uint8_t>(v >> (8 * i)));
}

void put16(std::vector<uint8_t>& out, uint16_t v) {
    out.push_back(static_cast<uint8_t>(v));
    out.push_back(static_cast<uint8_t>(v >> 8));
}

// Rows bottom-up, as the format stores them: row 0 is the southern edge of the terrain.
bool writeBmp(const std::string& path, int width, int height, const std::function<Rgb(int, int)>& pixel) {
    const int stride = (width * 3 + 3) / 4 * 4;
    std::vector<uint8_t> out;
    out.reserve(54 + static_cast<size_t>(stride) * height);
    out.push_back('B');
    out.push_back('M');
    put32(out, static_cast<uint32_t>(54 + stride * height));
    put32(out, 0);
    put32(out, 54);
    put32(out, 40);
    put32(out, static_cast<uint32_t>(width));
    put32(out, static_cast<uint32_t>(height));
    put16(out, 1);
    put16(out, 24);
    for (int i = 0; i < 6; ++i)
        put32(out, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            Rgb c = pixel(x, y);
            out.insert(out.end(), {c.b, c.g, c.r});
        }
        out.insert(out.end(), static_cast<size_t>(stride - width * 3), 0);
    }
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
        return false;
    bool ok = std::fwrite(out.data(), 1, out.size(), file) == out.size();
    return std::fclose(file) == 0 && ok;
}

// Smooth hills from a few sine waves; 0..1.
double relief(int x, int y, unsigned seed) {
    double a = 0.07 + (seed % 7) * 0.01, b = 0.05 + (seed % 5) * 0.01;
    return 0.5 + 0.25 * std::sin(x * a + seed) * std::cos(y * b) +
           0.25 * std::sin((x + y) * 0.031 + seed * 0.5);
}

} // namespace

bool writeTerrainBitmaps(const std::string& layoutPath, const TerrainCells& cells, unsigned seed) {
    const std::filesystem::path path(layoutPath);
    const std::string stem = (path.parent_path() / path.stem()).string();
    const int width = static_cast<int>(cells.x), height = static_cast<int>(cells.y);
    auto meadow = [seed](int x, int y) {
        double h = relief(x, y, seed);
        return Rgb{static_cast<uint8_t>(150 + 40 * h), static_cast<uint8_t>(185 + 30 * h),
                   static_cast<uint8_t>(120 + 20 * h)};
    };
    auto heights = [seed](int x, int y) {
        auto v = static_cast<uint8_t>(255 * relief(x, y, seed));
        return Rgb{v, v, v};
    };
    auto plain = [](int, int) { return Rgb{128, 128, 128}; };
    auto index = [](int, int) { return Rgb{0, 0, 0}; };
    return writeBmp(stem + "F.bmp", width, height, meadow) &&
           writeBmp(stem + "H.bmp", width, height, heights) &&
           writeBmp(stem + "T.bmp", width, height, plain) && writeBmp(stem + "B.bmp", width, height, index);
}

} // namespace kavrin::gen
