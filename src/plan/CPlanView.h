#pragma once

#include <string>
#include <vector>

#include "nodes/CRect.h"

namespace kavrin {

// How the layout maps onto the plan's picture: the layout rectangle, the zoom steps and the
// factor, the centre, and the visible world window derived from them (ScalePlan). The factor
// moves freely between 1 (the whole layout) and MaxZoom; the steps are the fixed stops of the
// zoom box and of the zoom-in and zoom-out commands.
// World units are cm; y grows upwards, so the window's height H is negative.
class CPlanView {
public:
    // The layout's lower-left corner and extent in world units.
    void SetLayout(double posX, double posY, double extX, double extY);
    double PosX() const { return posX_; }
    double PosY() const { return posY_; }
    double ExtX() const { return extX_; }
    double ExtY() const { return extY_; }
    double Aspect() const { return aspect_; }
    // The layout rectangle, normalised.
    CRect LayoutRect() const { return CRect(posX_, posY_ + extY_, posX_ + extX_, posY_); }

    // The picture's client area in pixels.
    void SetClientSize(int width, int height);
    int ClientWidth() const { return clientWidth_; }
    int ClientHeight() const { return clientHeight_; }

    // Powers of two from 1 up to one step per 50 m of the longer side; keeps the selected entry
    // when it survives, else selects the last one. A factor between the steps is kept.
    void BuildZoomSteps();
    const std::vector<float>& ZoomSteps() const { return steps_; }
    // The entry whose factor is the current one, or -1 between the steps.
    int ZoomIndex() const { return zoomIndex_; }
    static std::string ZoomText(float step);
    // The closest the view comes: the last step, or ten metres across the longer side of the
    // layout when that is closer.
    float MaxZoom() const;

    // Selects an entry and applies its factor; false when the index is outside the steps.
    bool SelectZoom(int index);
    // Applies a factor: nothing when it is the current one; at 1 or less the view recentres on
    // the middle of the layout. True when the factor changed.
    bool SetZoom(float factor);
    float Zoom() const { return zoom_; }
    // The entries just above and below the current factor, -1 when there is none.
    int StepAbove() const;
    int StepBelow() const;
    bool CanZoomIn() const { return StepAbove() >= 0; }
    bool CanZoomOut() const { return StepBelow() >= 0; }
    bool ZoomIn();
    bool ZoomOut();
    // Back to the first step (the whole layout).
    bool World();
    // Zooms to a factor (kept within 1 .. MaxZoom) so that the world point under the pixel
    // (px, py) stays under it, as far as the view can stay on the layout. True when the factor
    // changed.
    bool ZoomAt(float factor, double px, double py);
    // Centres the view on a world rectangle with the factor that shows all of it and a margin
    // of `margin` times its size on every side (within 1 .. MaxZoom); a rectangle smaller than
    // 20 m is shown as if it were that large. A rectangle that is no number gives the whole
    // layout. False when the picture has no size yet.
    bool FitTo(const CRect& world, double margin = 0.04);
    // Along an axis on which the view is larger than the layout, the layout is centred; along
    // the others the view does not leave the layout.
    void KeepOnLayout();
    // Moves the view by a distance in pixels (x right, y down), within the layout.
    void ScrollBy(double dxPx, double dyPx);

    void SetCentre(double x, double y);
    double CentreX() const { return centreX_; }
    double CentreY() const { return centreY_; }

    // Fits the layout to the picture at the current zoom and centre; false (nothing to draw)
    // for an empty picture, an empty layout, no zoom or arithmetic that leaves finite numbers.
    bool ScalePlan();
    bool Scaled() const { return scaled_; }
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    double ScrollRangeX() const { return scrollRangeX_; }
    double ScrollRangeY() const { return scrollRangeY_; }

    // Scroll positions in world units: 0 shows the layout's left (top) edge; values are clamped
    // to the ranges. Setting one moves the centre and scales the plan again.
    double ScrollValueX() const;
    double ScrollValueY() const;
    void SetScrollValueX(double value);
    void SetScrollValueY(double value);

    // World units per pixel along x (the scale is the same on both axes).
    double PixelSize() const;
    double ToWorldX(double px) const { return left_ + px * width_ / clientWidth_; }
    double ToWorldY(double py) const { return top_ + py * height_ / clientHeight_; }
    double ToPixelX(double x) const { return (x - left_) / width_ * clientWidth_; }
    double ToPixelY(double y) const { return (y - top_) / height_ * clientHeight_; }

    // The culling test of every node: inside the window widened by margin on all sides,
    // edges included.
    bool IsVisible(double x, double y, double margin) const {
        return left_ - margin <= x && x <= left_ + width_ + margin && y <= top_ + margin &&
               top_ + height_ - margin <= y;
    }

    // World offsets every node adds to its position before culling and drawing.
    double PaintXOffset = 0;
    double PaintYOffset = 0;

private:
    void CentreOnLayout();
    // The step whose factor is `factor`, or -1.
    int StepOf(float factor) const;

    double posX_ = 0, posY_ = 0, extX_ = 0, extY_ = 0, aspect_ = 0;
    int clientWidth_ = 0, clientHeight_ = 0;
    std::vector<float> steps_{1.0f};
    int zoomIndex_ = -1;
    float zoom_ = 0;
    double centreX_ = 0, centreY_ = 0;
    bool scaled_ = false;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    double scrollRangeX_ = 0, scrollRangeY_ = 0;
};

} // namespace kavrin
