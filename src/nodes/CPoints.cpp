#include "nodes/CPoints.h"

#include "core/CError.h"

namespace kavrin {

void CPoints::SetCount(int16_t count) {
    if (count < 1)
        throw CError::SubscriptOutOfRange();
    count_ = count;
    x_.assign(static_cast<size_t>(count), 0.0f);
    y_.assign(static_cast<size_t>(count), 0.0f);
}

size_t CPoints::Checked(int16_t i) const {
    if (i < 0 || i >= count_)
        throw CError::SubscriptOutOfRange();
    return static_cast<size_t>(i);
}

float CPoints::X(int16_t i) const {
    return x_[Checked(i)];
}
float CPoints::Y(int16_t i) const {
    return y_[Checked(i)];
}
void CPoints::SetX(int16_t i, float x) {
    x_[Checked(i)] = x;
}
void CPoints::SetY(int16_t i, float y) {
    y_[Checked(i)] = y;
}

void CPoints::SetPoint(int16_t i, float x, float y) {
    size_t index = Checked(i);
    x_[index] = x;
    y_[index] = y;
}

} // namespace kavrin
