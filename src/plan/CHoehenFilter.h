#pragma once

namespace kavrin {

// The height band of the plan: objects above the upper or below the lower limit are not shown
// (and so drop out of what the user can select). Both limits are inclusive; a new filter lets
// every height through. Heights are world units (cm). Bottom > Top is the dialog's business.
class CHoehenFilter {
public:
    void ClearTopLine() { topActive_ = false; }
    void ClearBottomLine() { bottomActive_ = false; }
    void Clear();
    void SetTopLine(float h);
    void SetBottomLine(float h);
    void SetFilter(float bottom, float top);

    // Written as "not (h >= Bottom)" so that a height that is no number (NaN) fails an active
    // lower limit instead of slipping through.
    bool inRange(double h) const {
        if (bottomActive_ && !(h >= bottom_))
            return false;
        return !(topActive_ && h > top_);
    }
    // Either limit in force.
    bool Active() const { return topActive_ || bottomActive_; }

    bool TopActive() const { return topActive_; }
    void SetTopActive(bool on) { topActive_ = on; }
    bool BottomActive() const { return bottomActive_; }
    void SetBottomActive(bool on) { bottomActive_ = on; }
    float Top() const { return top_; }
    void SetTop(float h) { top_ = h; }
    float Bottom() const { return bottom_; }
    void SetBottom(float h) { bottom_ = h; }

private:
    bool topActive_ = false;
    bool bottomActive_ = false;
    float top_ = 0;
    float bottom_ = 0;
};

} // namespace kavrin
