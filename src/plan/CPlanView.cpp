#include "plan/CPlanView.h"

#include <algorithm>
#include <cmath>

#include "core/CError.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
// One zoom step per 50 m of the layout's longer side.
constexpr double kWorldPerStep = 5000;

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
    if (zoomIndex_ >= static_cast<int>(steps_.size()))
        zoomIndex_ = -1;
    if (zoomIndex_ < 0)
        SelectZoom(static_cast<int>(steps_.size()) - 1);
}

bool CPlanView::SelectZoom(int index) {
    if (index < 0 || index >= static_cast<int>(steps_.size()))
        return false;
    zoomIndex_ = index;
    return SetZoom(steps_[static_cast<size_t>(index)]);
}

bool CPlanView::SetZoom(float factor) {
    if (factor == zoom_)
        return false;
    if (factor <= 1)
        CentreOnLayout();
    zoom_ = factor;
    ScalePlan();
    return true;
}

bool CPlanView::CanZoomIn() const {
    return zoomIndex_ >= 0 && zoomIndex_ + 1 < static_cast<int>(steps_.size());
}

bool CPlanView::CanZoomOut() const {
    return zoomIndex_ > 0;
}

bool CPlanView::ZoomIn() {
    return CanZoomIn() && SelectZoom(zoomIndex_ + 1);
}

bool CPlanView::ZoomOut() {
    return CanZoomOut() && SelectZoom(zoomIndex_ - 1);
}

bool CPlanView::World() {
    return SelectZoom(0);
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
