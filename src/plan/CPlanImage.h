#pragma once

#include <cstdint>
#include <vector>

namespace kavrin {

// A decoded picture for the plan's background: pixels as 0xFFRRGGBB, top row first.
class CPlanImage {
public:
    CPlanImage() = default;
    CPlanImage(int width, int height) : width_(width), height_(height) {
        pixels_.resize(static_cast<size_t>(width) * static_cast<size_t>(height), 0xFF000000u);
    }

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool Empty() const { return pixels_.empty(); }
    const uint32_t* Row(int y) const { return pixels_.data() + static_cast<size_t>(y) * width_; }
    uint32_t* Row(int y) { return pixels_.data() + static_cast<size_t>(y) * width_; }
    const uint32_t* Data() const { return pixels_.data(); }

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<uint32_t> pixels_;
};

} // namespace kavrin
