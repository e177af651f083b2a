#include "app/CPixelStamps.h"

#include <cmath>

namespace kavrin {

namespace {
constexpr size_t kSegmentSlots = size_t{1} << 17;
constexpr int kProbes = 8;
constexpr uint32_t kKinds = 8;

// A pixel coordinate as a 16-bit field; false when it does not fit.
bool Field(double value, uint64_t& field) {
    if (!(value >= -16384 && value < 49152))
        return false;
    field = static_cast<uint64_t>(static_cast<int64_t>(std::floor(value)) + 16384);
    return true;
}
} // namespace

void CPixelStamps::Resize(int width, int height) {
    width_ = width > 0 ? width : 0;
    height_ = height > 0 ? height : 0;
    marks_.assign(static_cast<size_t>(width_) * static_cast<size_t>(height_), 0);
    segments_.assign(kSegmentSlots, Slot{});
    generation_ = 1;
}

void CPixelStamps::NextGeneration() {
    if (++generation_ >= UINT32_MAX / kKinds) {
        Resize(width_, height_);
    }
}

bool CPixelStamps::FirstMark(double px, double py, uint32_t kind) {
    if (!(px >= 0 && py >= 0 && px < width_ && py < height_))
        return true;
    uint32_t& stamp = marks_[static_cast<size_t>(py) * static_cast<size_t>(width_) + static_cast<size_t>(px)];
    uint32_t wanted = generation_ * kKinds + kind % kKinds;
    if (stamp == wanted)
        return false;
    stamp = wanted;
    return true;
}

bool CPixelStamps::FirstSegment(double ax, double ay, double bx, double by) {
    uint64_t x1, y1, x2, y2;
    if (segments_.empty() || !Field(ax, x1) || !Field(ay, y1) || !Field(bx, x2) || !Field(by, y2))
        return true;
    uint64_t key = (x1 << 48 | y1 << 32 | x2 << 16 | y2) + 1;
    size_t slot = static_cast<size_t>((key * 0x9E3779B97F4A7C15ull) >> 47) & (kSegmentSlots - 1);
    for (int probe = 0; probe < kProbes; ++probe) {
        Slot& entry = segments_[(slot + static_cast<size_t>(probe)) & (kSegmentSlots - 1)];
        if (entry.generation != generation_) {
            entry = {key, generation_};
            return true;
        }
        if (entry.key == key)
            return false;
    }
    return true;
}

} // namespace kavrin
