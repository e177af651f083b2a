#include "plan/CPlanView.h"

#include <algorithm>
#include <cmath>

#include "core/CError.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
// One zoom step per 50 m of the layout's longer side.
constexpr double kWorldPerStep = 5000;
// The view comes no closer than this across the layout's longer side.
constexpr double kClosestView = 1000;
// Fitting shows at least this much of the world (20 m) on either axis.
constexpr double kSmallestFit = 2000;
// Factors this close are the same step (a factor typed or computed may miss a step by a hair).
constexpr float kStepTolerance = 1e-4f;

bool Finite(double a, double b, double c, double d) {
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d);
}

// The run-time's rounding to a whole number (half to even), kept inside 32 bits.
double RoundHalfEven(double value) {
    return std::nearbyint(std::clamp(value, -2147483648.0, 2147483647.0));
}
} // namespace

void CPlanView::SetLayout(double posX, double posY, double extX, double extY) {
    posX_ = posX;
    posY_ = posY;
    extX_ = extX;
    extY_ = extY;
    aspect_ = extY > 0 ? extX / extY : 0;
    CentreOnLayout();
}

void CPlanView::SetClientSize(int width, int height) {
    clientWidth_ = std::max(0, width);
    clientHeight_ = std::max(0, height);
}

std::string CPlanView::ZoomText(float step) {
    return NumberToText(static_cast<double>(step));
}

void CPlanView::BuildZoomSteps() {
    double longer = std::max(extX_, extY_);
    double maxZoom = std::isfinite(longer) ? std::max(1.0, RoundHalfEven(longer / kWorldPerStep)) : 1.0;
    double v = steps_.back();
    while (maxZoom > v) {
        v = 2 * v;
        steps_.push_back(static_cast<float>(v));
    }
    while (2 * maxZoom < v && steps_.size() > 1) {
        v = v / 2;
        steps_.pop_back();
    }
    if (zoomIndex_ >= static_cast<int>(steps_.size()) || (zoomIndex_ < 0 && zoom_ <= 0))
        SelectZoom(static_cast<int>(steps_.size()) - 1);
    else if (zoomIndex_ < 0)
        SetZoom(std::clamp(zoom_, 1.0f, MaxZoom()));
}

float CPlanView::MaxZoom() const {
    double longer = std::max(extX_, extY_);
    double closest = std::isfinite(longer) ? longer / kClosestView : 0;
    return std::max(steps_.back(), static_cast<float>(std::min(closest, 1e6)));
}

int CPlanView::StepOf(float factor) const {
    for (size_t i = 0; i < steps_.size(); ++i)
        if (std::fabs(steps_[i] - factor) <= kStepTolerance * steps_[i])
            return static_cast<int>(i);
    return -1;
}

bool CPlanView::SelectZoom(int index) {
    if (index < 0 || index >= static_cast<int>(steps_.size()))
        return false;
    return SetZoom(steps_[static_cast<size_t>(index)]);
}

bool CPlanView::SetZoom(float factor) {
    int index = StepOf(factor);
    if (index >= 0)
        factor = steps_[static_cast<size_t>(index)];
    zoomIndex_ = index;
    if (factor == zoom_)
        return false;
    if (factor <= 1)
        CentreOnLayout();
    zoom_ = factor;
    ScalePlan();
    return true;
}

int CPlanView::StepAbove() const {
    if (zoom_ <= 0)
        return -1;
    for (size_t i = 0; i < steps_.size(); ++i)
        if (steps_[i] > zoom_ && static_cast<int>(i) != zoomIndex_)
            return static_cast<int>(i);
    return -1;
}

int CPlanView::StepBelow() const {
    if (zoom_ <= 0)
        return -1;
    for (size_t i = steps_.size(); i-- > 0;)
        if (steps_[i] < zoom_ && static_cast<int>(i) != zoomIndex_)
            return static_cast<int>(i);
    return -1;
}

bool CPlanView::ZoomIn() {
    return SelectZoom(StepAbove());
}

bool CPlanView::ZoomOut() {
    return SelectZoom(StepBelow());
}

bool CPlanView::World() {
    return SelectZoom(0);
}

bool CPlanView::ZoomAt(float factor, double px, double py) {
    if (!scaled_ || !std::isfinite(factor))
        return false;
    factor = std::clamp(factor, 1.0f, MaxZoom());
    double x = ToWorldX(px), y = ToWorldY(py);
    if (!SetZoom(factor))
        return false;
    if (zoom_ > 1 && scaled_) {
        centreX_ = x + width_ * (0.5 - px / clientWidth_);
        centreY_ = y + height_ * (0.5 - py / clientHeight_);
        KeepOnLayout();
    }
    return true;
}

bool CPlanView::FitTo(const CRect& world, double margin) {
    if (clientWidth_ <= 0 || clientHeight_ <= 0 || !(extX_ > 0) || !(extY_ > 0))
        return false;
    CRect box = world;
    box.Normalize();
    if (!Finite(box.Left, box.Right, box.Top, box.Bottom)) {
        World();
        return ScalePlan();
    }
    // A lone object or a single straight line is shown with some land around it.
    double boxW = std::max(box.Width(), kSmallestFit) * (1 + 2 * margin);
    double boxH = std::max(box.Top - box.Bottom, kSmallestFit) * (1 + 2 * margin);
    // The visible size at factor 1 (ScalePlan's fx and fy), divided by what must be seen.
    double q = static_cast<double>(clientWidth_) / clientHeight_;
    double visibleW = aspect_ <= q ? extY_ * q : extX_;
    double visibleH = aspect_ <= q ? extY_ : extX_ / q;
    double factor = std::min(visibleW / boxW, visibleH / boxH);
    SetZoom(std::clamp(static_cast<float>(std::min(factor, 1e6)), 1.0f, MaxZoom()));
    if (zoom_ > 1) {
        centreX_ = (box.Left + box.Right) / 2;
        centreY_ = (box.Top + box.Bottom) / 2;
        KeepOnLayout();
    }
    return ScalePlan();
}

void CPlanView::KeepOnLayout() {
    if (!ScalePlan())
        return;
    const double halfW = width_ / 2, halfH = -height_ / 2;
    const double midX = posX_ + extX_ / 2, midY = posY_ + extY_ / 2;
    centreX_ = scrollRangeX_ <= 0 ? midX : std::clamp(centreX_, posX_ + halfW, posX_ + extX_ - halfW);
    centreY_ = scrollRangeY_ <= 0 ? midY : std::clamp(centreY_, posY_ + halfH, posY_ + extY_ - halfH);
    ScalePlan();
}

void CPlanView::ScrollBy(double dxPx, double dyPx) {
    if (!scaled_)
        return;
    const double pixel = PixelSize();
    SetScrollValueX(ScrollValueX() + dxPx * pixel);
    SetScrollValueY(ScrollValueY() + dyPx * pixel);
}

void CPlanView::SetCentre(double x, double y) {
    centreX_ = x;
    centreY_ = y;
}

void CPlanView::CentreOnLayout() {
    centreX_ = posX_ + extX_ / 2;
    centreY_ = posY_ + extY_ / 2;
}

bool CPlanView::ScalePlan() {
    scaled_ = false;
    if (clientWidth_ <= 0 || clientHeight_ <= 0 || !(zoom_ > 0) || !(extX_ > 0) || !(extY_ > 0))
        return false;
    double q = static_cast<double>(clientWidth_) / clientHeight_;
    double a = aspect_;
    double fx = 1, fy = 1;
    if (a <= q)
        fx = q / a;
    else
        fy = a / q;
    double w = extX_ * fx / zoom_;
    double h = extY_ * fy / zoom_;
    double left = centreX_ - w / 2;
    double top = centreY_ + h / 2;
    if (!Finite(w, h, left, top) || w <= 0 || h <= 0)
        return false;
    width_ = w;
    height_ = -h;
    scrollRangeX_ = extX_ - w;
    scrollRangeY_ = extY_ - h;
    left_ = left;
    top_ = top;
    scaled_ = true;
    return true;
}

double CPlanView::ScrollValueX() const {
    return std::clamp(left_ - posX_, 0.0, std::max(0.0, scrollRangeX_));
}

double CPlanView::ScrollValueY() const {
    return std::clamp(posY_ + extY_ - top_, 0.0, std::max(0.0, scrollRangeY_));
}

void CPlanView::SetScrollValueX(double value) {
    if (!scaled_ || scrollRangeX_ <= 0)
        return;
    centreX_ = posX_ + std::clamp(value, 0.0, scrollRangeX_) + width_ / 2;
    ScalePlan();
}

void CPlanView::SetScrollValueY(double value) {
    if (!scaled_ || scrollRangeY_ <= 0)
        return;
    centreY_ = posY_ + extY_ - std::clamp(value, 0.0, scrollRangeY_) + height_ / 2;
    ScalePlan();
}

double CPlanView::PixelSize() const {
    return clientWidth_ > 0 ? width_ / clientWidth_ : 0;
}

} // namespace kavrin
