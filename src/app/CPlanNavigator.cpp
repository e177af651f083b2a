#include "app/CPlanNavigator.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "app/CPlanCommands.h"
#include "app/CPlanWidget.h"
#include "app/modPlanTexts.h"
#include "app/modQtText.h"
#include "document/CAnlage.h"
#include "plan/CContentBox.h"
#include "plan/CPlanView.h"

namespace kavrin {

namespace {
// Milliseconds between the last resize and the drawing.
constexpr int kPaintDelay = 120;
} // namespace

CPlanNavigator::CPlanNavigator(const CAnlage& anlage, CPlanView& view, CPlanWidget& plan,
                               CPlanCommands& commands, QScrollBar& horizontal, QScrollBar& vertical,
                               QObject* parent)
    : QObject(parent), anlage_(anlage), view_(view), plan_(plan), commands_(commands),
      zoomBox_(*commands.ZoomBox()), horizontal_(horizontal), vertical_(vertical),
      paintTimer_(new QTimer(this)) {
    // Several resizes in a row give one drawing.
    paintTimer_->setObjectName(QStringLiteral("PaintTimer"));
    paintTimer_->setInterval(kPaintDelay);
    paintTimer_->setSingleShot(true);
    UpdateScrollBars();
    Connect();
}

void CPlanNavigator::Connect() {
    connect(&zoomBox_, &QComboBox::currentIndexChanged, this, &CPlanNavigator::ZoomSelected);
    // After a choice in the zoom box the keys belong to the plan again.
    connect(&zoomBox_, &QComboBox::activated, &plan_, [this] { plan_.setFocus(); });
    connect(zoomBox_.lineEdit(), &QLineEdit::returnPressed, this, &CPlanNavigator::ZoomTyped);
    connect(&horizontal_, &QScrollBar::valueChanged, this, [this](int value) {
        fitContent_ = false;
        view_.SetScrollValueX(value);
        plan_.Invalidate();
    });
    connect(&vertical_, &QScrollBar::valueChanged, this, [this](int value) {
        fitContent_ = false;
        view_.SetScrollValueY(value);
        plan_.Invalidate();
    });
    connect(&plan_, &CPlanWidget::Resized, paintTimer_, qOverload<>(&QTimer::start));
    connect(paintTimer_, &QTimer::timeout, this, &CPlanNavigator::RescalePlan);
    connect(&plan_, &CPlanWidget::Dragged, this, [this](QPoint distance) { ScrollPlan(-QPointF(distance)); });
    connect(&plan_, &CPlanWidget::ScrollBy, this, &CPlanNavigator::ScrollPlan);
    connect(&plan_, &CPlanWidget::ZoomBy, this, &CPlanNavigator::ZoomAtMouse);
    connect(&plan_, &CPlanWidget::ZoomStep, this,
            [this](int direction) { direction > 0 ? ZoomIn() : ZoomOut(); });
}

void CPlanNavigator::CancelRescale() {
    paintTimer_->stop();
}

void CPlanNavigator::FillZoomBox() {
    {
        QSignalBlocker quiet(&zoomBox_);
        zoomBox_.clear();
        for (float step : view_.ZoomSteps())
            zoomBox_.addItem(ToQt(CPlanView::ZoomText(step)));
    }
    ShowZoom();
}

void CPlanNavigator::ShowZoom() {
    QSignalBlocker quiet(&zoomBox_);
    zoomBox_.setCurrentIndex(view_.ZoomIndex());
    if (view_.ZoomIndex() < 0 && view_.Zoom() > 0)
        zoomBox_.setEditText(ToQt(ZoomFactorText(view_.Zoom())));
    UpdateZoomCommands();
}

void CPlanNavigator::ZoomSelected(int index) {
    if (index < 0 || index == view_.ZoomIndex())
        return;
    fitContent_ = false;
    view_.SelectZoom(index);
    ShowZoom();
    RescalePlan();
}

// A factor typed into the zoom box applies about the middle of the picture; anything that is
// no factor gives way to the current one, and so does the text the box shows for it (which
// may be rounded).
void CPlanNavigator::ZoomTyped() {
    const std::string typed = FromQt(zoomBox_.currentText());
    float factor = 0;
    if (view_.Scaled() && typed != ZoomFactorText(view_.Zoom()) && ReadZoomFactor(typed, factor)) {
        fitContent_ = false;
        view_.ZoomAt(factor, view_.ClientWidth() / 2.0, view_.ClientHeight() / 2.0);
    }
    ShowZoom();
    RescalePlan();
    plan_.setFocus();
}

void CPlanNavigator::ZoomIn() {
    if (view_.CanZoomIn())
        zoomBox_.setCurrentIndex(view_.StepAbove());
}

void CPlanNavigator::ZoomOut() {
    if (view_.CanZoomOut())
        zoomBox_.setCurrentIndex(view_.StepBelow());
}

void CPlanNavigator::World() {
    if (zoomBox_.count() == 0)
        return;
    fitContent_ = false;
    view_.World();
    ShowZoom();
    RescalePlan();
}

void CPlanNavigator::ZoomToContent() {
    if (view_.Zoom() <= 0)
        return;
    content_ = CContentBox::Of(anlage_, view_.LayoutRect());
    fitContent_ = true;
    RescalePlan();
}

void CPlanNavigator::ZoomToBox(const CRect& world) {
    if (view_.Zoom() <= 0)
        return;
    content_ = world;
    fitContent_ = true;
    RescalePlan();
}

// The wheel and a pinch zoom about the point under the mouse: that point stays where it is, as
// far as the view can stay on the layout.
void CPlanNavigator::ZoomAtMouse(double multiplier, QPointF position) {
    if (!view_.Scaled())
        return;
    fitContent_ = false;
    if (!view_.ZoomAt(static_cast<float>(view_.Zoom() * multiplier), position.x(), position.y()))
        return;
    ShowZoom();
    RescalePlan();
}

void CPlanNavigator::ScrollPlan(QPointF pixels) {
    if (!view_.Scaled())
        return;
    fitContent_ = false;
    view_.ScrollBy(pixels.x(), pixels.y());
    UpdateScrollBars();
    plan_.Invalidate();
}

bool CPlanNavigator::FitView() {
    if (content_)
        return view_.FitTo(*content_);
    view_.World();
    return view_.ScalePlan();
}

void CPlanNavigator::RescalePlan() {
    paintTimer_->stop();
    view_.SetClientSize(plan_.width(), plan_.height());
    if (fitContent_ && FitView())
        ShowZoom();
    else
        view_.ScalePlan();
    UpdateScrollBars();
    plan_.Invalidate();
}

namespace {
int ScrollUnits(double world) {
    return static_cast<int>(std::clamp(std::round(world), 0.0, 1e9));
}

// Scroll bars count world units: the range is what the layout has beyond the view, a page is
// the visible size, a step a tenth of it.
void SetScrollBar(QScrollBar& bar, bool scaled, double range, double visible, double value) {
    QSignalBlocker quiet(&bar);
    const int maximum = scaled ? ScrollUnits(range) : 0;
    bar.setRange(0, maximum);
    bar.setPageStep(std::max(1, ScrollUnits(visible)));
    bar.setSingleStep(std::max(1, ScrollUnits(visible / 10)));
    bar.setValue(scaled ? ScrollUnits(value) : 0);
    bar.setEnabled(maximum > 0);
}
} // namespace

void CPlanNavigator::UpdateScrollBars() {
    SetScrollBar(horizontal_, view_.Scaled(), view_.ScrollRangeX(), view_.Width(), view_.ScrollValueX());
    SetScrollBar(vertical_, view_.Scaled(), view_.ScrollRangeY(), -view_.Height(), view_.ScrollValueY());
}

void CPlanNavigator::UpdateZoomCommands() {
    commands_.EnableZoom(view_.CanZoomIn(), view_.CanZoomOut(), view_.Zoom() > 0);
}

void CPlanNavigator::ShowPlace(double x, double y) {
    if (!view_.Scaled() || !std::isfinite(x) || !std::isfinite(y))
        return;
    const std::vector<float>& steps = view_.ZoomSteps();
    const double wanted = std::max(view_.ExtX(), view_.ExtY()) / 8000.0;
    int index = static_cast<int>(steps.size()) - 1;
    for (int i = 0; i < static_cast<int>(steps.size()); ++i)
        if (steps[static_cast<size_t>(i)] >= wanted) {
            index = i;
            break;
        }
    fitContent_ = false;
    view_.SelectZoom(index);
    view_.SetCentre(x, y);
    view_.KeepOnLayout();
    ShowZoom();
    RescalePlan();
}

} // namespace kavrin
