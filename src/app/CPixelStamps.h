#pragma once

#include <cstdint>
#include <vector>

namespace kavrin {

// Remembers which marks and line segments a canvas has queued since its pen last changed, at
// whole-pixel resolution. A large layout seen whole puts hundreds of marks on one pixel; the
// second and later ones would paint exactly the same pixels and are left out. Points outside
// the picture and a full table simply count as new, so nothing is ever lost, only repeated.
class CPixelStamps {
public:
    void Resize(int width, int height);
    // Forgets everything queued so far (the pen changed or the queue was drawn).
    void NextGeneration();
    // True the first time a mark of this kind is seen at the pixel of (px, py).
    bool FirstMark(double px, double py, uint32_t kind);
    // True the first time a segment between these two pixels is seen.
    bool FirstSegment(double ax, double ay, double bx, double by);

private:
    struct Slot {
        uint64_t key = 0;
        uint32_t generation = 0;
    };

    int width_ = 0;
    int height_ = 0;
    uint32_t generation_ = 1;
    std::vector<uint32_t> marks_;
    std::vector<Slot> segments_;
};

} // namespace kavrin
