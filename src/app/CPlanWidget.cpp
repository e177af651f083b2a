#include "app/CPlanWidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>

#include "app/CQtCanvas.h"
#include "app/modPlanExport.h"
#include "app/modQtText.h"
#include "core/IUserInterface.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
constexpr int kWheelNotch = 120;

// Shows the hourglass while it lives, also when drawing fails.
class WaitCursor {
public:
    WaitCursor() { UI().SetWaitCursor(true); }
    ~WaitCursor() { UI().SetWaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};
} // namespace

CPlanWidget::CPlanWidget(CAnlage& anlage, CPlanView& view, const CViewOptions& options, QWidget* parent)
    : QWidget(parent), anlage_(anlage), view_(view), options_(options),
      painter_(std::make_unique<CPlanPainter>(anlage, view, options)) {
    setObjectName(QStringLiteral("picPlan"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAutoFillBackground(true);
    setMouseTracking(true);
}

CPlanWidget::~CPlanWidget() = default;

QColor CPlanWidget::BackgroundColor() const {
    return ColorFromBgr(options_.BgColor());
}

void CPlanWidget::Invalidate() {
    stale_ = true;
    deferred_ = false;
    QPalette background = palette();
    background.setColor(QPalette::Window, BackgroundColor());
    setPalette(background);
    update();
}

bool CPlanWidget::Render() {
    stale_ = false;
    deferred_ = false;
    drawn_ = false;
    // A closing window has released its tree already.
    if (width() <= 0 || height() <= 0 || !anlage_.RootNode()) {
        cache_ = QImage();
        view_.SetClientSize(std::max(0, width()), std::max(0, height()));
        view_.ScalePlan(); // fails for an empty picture: nothing maps to it
        return false;
    }
    QImage image(size(), QImage::Format_RGB32);
    image.fill(BackgroundColor());
    drawn_ = DrawAllSafely(image);
    cache_ = std::move(image);
    return drawn_;
}

// A fault of the plan arithmetic ends the drawing; it is reported after the paint, since a
// message box inside a paint event would paint again.
bool CPlanWidget::DrawAllSafely(QImage& image) {
    WaitCursor wait;
    try {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, kPlanAntialiasing);
        CQtCanvas canvas(painter, image);
        return painter_->DrawAll(canvas);
    } catch (...) {
        CError failure = CError::FromCurrentException();
        QTimer::singleShot(0, this, [failure] { ReportError("FAnlage.DrawAll", failure); });
        return false;
    }
}

void CPlanWidget::paintEvent(QPaintEvent*) {
    if (stale_ && !deferred_)
        Render();
    QPainter painter(this);
    if (cache_.size() != size() || !dragOffset_.isNull())
        painter.fillRect(rect(), BackgroundColor());
    if (!cache_.isNull())
        painter.drawImage(dragOffset_, cache_);
}

void CPlanWidget::SetTool(Tool tool) {
    tool_ = tool;
    setCursor(tool == Tool::Mover ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

void CPlanWidget::mousePressEvent(QMouseEvent* event) {
    if (tool_ == Tool::Mover && event->button() == Qt::LeftButton && drawn_) {
        dragging_ = true;
        dragStart_ = event->position().toPoint();
        dragOffset_ = {};
        setCursor(Qt::ClosedHandCursor);
    }
    QWidget::mousePressEvent(event);
}

void CPlanWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (view_.Scaled())
        emit MouseAt(view_.ToWorldX(at.x()), view_.ToWorldY(at.y()));
    if (dragging_) {
        // The cached picture follows the mouse; the plan is drawn anew when the button is let go.
        dragOffset_ = at.toPoint() - dragStart_;
        update();
    }
}

void CPlanWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (dragging_ && event->button() == Qt::LeftButton) {
        dragging_ = false;
        const QPoint distance = dragOffset_;
        dragOffset_ = {};
        setCursor(Qt::OpenHandCursor);
        if (!distance.isNull())
            emit Dragged(distance);
        update();
    }
    QWidget::mouseReleaseEvent(event);
}

void CPlanWidget::leaveEvent(QEvent* event) {
    emit MouseLeft();
    QWidget::leaveEvent(event);
}

// Touchpads send fractions of a notch; they add up to whole zoom steps.
void CPlanWidget::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int notches = wheelRest_ / kWheelNotch;
    wheelRest_ -= notches * kWheelNotch;
    if (notches != 0)
        emit WheelZoom(notches, event->position());
    event->accept();
}

void CPlanWidget::resizeEvent(QResizeEvent* event) {
    deferred_ = true;
    emit Resized();
    QWidget::resizeEvent(event);
}

} // namespace kavrin
