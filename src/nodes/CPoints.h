#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kavrin {

// A polygon of plan points in single precision.
class CPoints {
public:
    int16_t Count() const { return count_; }
    // Re-dimensions both arrays, discarding their contents; below 1 is an error.
    void SetCount(int16_t count);
    float X(int16_t i) const;
    float Y(int16_t i) const;
    void SetX(int16_t i, float x);
    void SetY(int16_t i, float y);
    void SetPoint(int16_t i, float x, float y);

private:
    size_t Checked(int16_t i) const;
    int16_t count_ = 0;
    std::vector<float> x_;
    std::vector<float> y_;
};

} // namespace kavrin
