#include "app/CPlanWidget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/CQtCanvas.h"
#include "app/modPlanExport.h"
#include "app/modQtText.h"
#include "core/IUserInterface.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "plan/CObjectTip.h"
#include "plan/CPlanHitTest.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"
#include "plan/CViewOptions.h"

namespace kavrin {

namespace {
constexpr double kWheelNotch = 120;
// Three wheel notches double the factor.
constexpr double kNotchesPerDoubling = 3;
// An arrow key moves the view by this share of the picture, PgUp/PgDn by a page less a margin.
constexpr double kArrowStep = 0.1;
constexpr double kPageStep = 0.9;
// Pixels around the mouse within which an object shows its tooltip.
constexpr int kTipReach = 5;

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
    setFocusPolicy(Qt::StrongFocus);
}

double CPlanWidget::WheelNotchFactor() {
    return std::pow(2.0, 1 / kNotchesPerDoubling);
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
    if (drawn_)
        emit Rendered();
    return drawn_;
}

// A fault of the plan arithmetic ends the drawing; it is reported after the paint, since a
// message box inside a paint event would paint again, and only once until a drawing succeeds:
// every resize and zoom draws anew.
bool CPlanWidget::DrawAllSafely(QImage& image) {
    WaitCursor wait;
    try {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, kPlanAntialiasing);
        CQtCanvas canvas(painter, image);
        bool drawn = painter_->DrawAll(canvas);
        drawFailureReported_ = false;
        return drawn;
    } catch (...) {
        CError failure = CError::FromCurrentException();
        if (!drawFailureReported_)
            QTimer::singleShot(0, this, [failure] { ReportError("FAnlage.DrawAll", failure); });
        drawFailureReported_ = true;
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
    PaintPointerWork(painter);
}

// The rubber band, or the selection where it would go if let go now.
void CPlanWidget::PaintPointerWork(QPainter& painter) {
    if (pointing_ == Pointing::Band) {
        painter.setPen(QPen(QColor(0x20, 0x60, 0xd0), 1, Qt::DashLine));
        painter.setBrush(QColor(0x20, 0x60, 0xd0, 0x20));
        painter.drawRect(QRect(pointStart_, pointNow_).normalized());
    } else if (pointing_ == Pointing::MoveSelection && PaintDraggedSelection) {
        PaintDraggedSelection(painter, pointNow_ - pointStart_);
    }
}

void CPlanWidget::SetPointPicking(bool on) {
    pointPicking_ = on;
    pointing_ = Pointing::None;
    RestoreCursor();
}

void CPlanWidget::SetTool(Tool tool) {
    tool_ = tool;
    pointing_ = Pointing::None;
    pointPicking_ = false;
    RestoreCursor();
}

QString CPlanWidget::ToolTipAt(QPointF at) const {
    if (!drawn_ || !view_.Scaled() || dragging_)
        return {};
    const CPlanHitTest::Hit hit = CPlanHitTest::At(anlage_, view_, view_.ToWorldX(at.x()),
                                                   view_.ToWorldY(at.y()), kTipReach * view_.PixelSize());
    return hit ? ToQt(CObjectTip::Of(*hit.node, hit.at)) : QString();
}

// The object under the mouse says what it is; over empty land no tip shows.
void CPlanWidget::ShowToolTip(const QPoint& at, const QPoint& global) {
    const QString text = ToolTipAt(at);
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(global, text, this,
                           QRect(at - QPoint(kTipReach, kTipReach), QSize(2, 2) * kTipReach));
}

void CPlanWidget::RestoreCursor() {
    if (dragging_)
        setCursor(Qt::ClosedHandCursor);
    else if (tool_ == Tool::Mover || spaceHeld_)
        setCursor(Qt::OpenHandCursor);
    else if (pointPicking_)
        setCursor(Qt::CrossCursor);
    else
        setCursor(Qt::ArrowCursor);
}

bool CPlanWidget::StartsDrag(Qt::MouseButton button) const {
    return button == Qt::MiddleButton || (button == Qt::LeftButton && (tool_ == Tool::Mover || spaceHeld_));
}

// Dragging the plan (middle button, the hand, Space) comes first; the left button of the pointer
// tool selects.
void CPlanWidget::mousePressEvent(QMouseEvent* event) {
    if (!dragging_ && drawn_ && StartsDrag(event->button())) {
        dragging_ = true;
        dragButton_ = event->button();
        dragStart_ = event->position().toPoint();
        dragOffset_ = {};
        RestoreCursor();
        event->accept();
        return;
    }
    if (tool_ == Tool::Pointer && !dragging_)
        PointerPressed(event);
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
    if (tool_ == Tool::Pointer && !dragging_)
        PointerMoved(event);
}

void CPlanWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (tool_ == Tool::Pointer && !dragging_)
        PointerReleased(event);
    if (dragging_ && event->button() == dragButton_) {
        dragging_ = false;
        const QPoint distance = dragOffset_;
        dragOffset_ = {};
        RestoreCursor();
        if (!distance.isNull())
            emit Dragged(distance);
        update();
        event->accept();
        return;
    }
    QWidget::mouseReleaseEvent(event);
}

// A press on the selection (without Ctrl or Shift) takes hold of it; anywhere else it may become
// a click or, once the mouse has gone a few pixels, a rubber band.
void CPlanWidget::PointerPressed(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !drawn_)
        return;
    pointStart_ = pointNow_ = event->position().toPoint();
    const bool plain = !pointPicking_ && !(event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    pointing_ = plain && GrabsSelection && GrabsSelection(event->position()) ? Pointing::MoveSelection
                                                                             : Pointing::Pending;
}

void CPlanWidget::PointerMoved(QMouseEvent* event) {
    if (pointing_ == Pointing::None && pointPicking_)
        return;
    if (pointing_ == Pointing::None) {
        // The hand tells that a press here takes hold of the selection.
        const bool grabs = !(event->buttons() & Qt::LeftButton) && !spaceHeld_ && GrabsSelection && drawn_ &&
                           GrabsSelection(event->position());
        if (grabs)
            setCursor(Qt::SizeAllCursor);
        else
            RestoreCursor();
        return;
    }
    pointNow_ = event->position().toPoint();
    if (pointing_ == Pointing::Pending && !pointPicking_ &&
        (pointNow_ - pointStart_).manhattanLength() >= QApplication::startDragDistance())
        pointing_ = Pointing::Band;
    update();
}

void CPlanWidget::PointerReleased(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || pointing_ == Pointing::None)
        return;
    const Pointing pointing = std::exchange(pointing_, Pointing::None);
    pointNow_ = event->position().toPoint();
    const QPoint distance = pointNow_ - pointStart_;
    const bool moved = distance.manhattanLength() >= QApplication::startDragDistance();
    if (pointing == Pointing::Band)
        emit BandSelected(QRect(pointStart_, pointNow_).normalized(), event->modifiers());
    else if (pointing == Pointing::MoveSelection && moved)
        emit SelectionDropped(distance);
    else
        emit PointerClicked(event->position(), event->modifiers());
    update();
}

void CPlanWidget::leaveEvent(QEvent* event) {
    emit MouseLeft();
    QWidget::leaveEvent(event);
}

// The wheel zooms by a share of a doubling per notch, so touchpads that send fractions of a
// notch zoom smoothly; Shift, or a wheel that turns sideways, scrolls sideways instead.
void CPlanWidget::wheelEvent(QWheelEvent* event) {
    const QPoint delta = event->angleDelta();
    event->accept();
    if (!view_.Scaled())
        return;
    const bool sideways =
        event->modifiers().testFlag(Qt::ShiftModifier) || (delta.y() == 0 && delta.x() != 0);
    if (sideways) {
        const double notches = (delta.x() != 0 ? delta.x() : delta.y()) / kWheelNotch;
        emit ScrollBy(QPointF(-notches * kArrowStep * width(), 0));
        return;
    }
    if (delta.y() != 0)
        emit ZoomBy(std::pow(2.0, delta.y() / kWheelNotch / kNotchesPerDoubling), event->position());
}

bool CPlanWidget::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        ShowToolTip(help->pos(), help->globalPos());
        return true;
    }
    if (event->type() == QEvent::NativeGesture) {
        auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture && view_.Scaled()) {
            emit ZoomBy(1 + gesture->value(), gesture->position());
            return true;
        }
    }
    return QWidget::event(event);
}

bool CPlanWidget::Navigate(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier)
        return false;
    const double stepX = kArrowStep * width(), stepY = kArrowStep * height();
    switch (event.key()) {
    case Qt::Key_Left:
        emit ScrollBy(QPointF(-stepX, 0));
        return true;
    case Qt::Key_Right:
        emit ScrollBy(QPointF(stepX, 0));
        return true;
    case Qt::Key_Up:
        emit ScrollBy(QPointF(0, -stepY));
        return true;
    case Qt::Key_Down:
        emit ScrollBy(QPointF(0, stepY));
        return true;
    case Qt::Key_PageUp:
        emit ScrollBy(QPointF(0, -kPageStep * height()));
        return true;
    case Qt::Key_PageDown:
        emit ScrollBy(QPointF(0, kPageStep * height()));
        return true;
    case Qt::Key_Plus:
        emit ZoomStep(1);
        return true;
    case Qt::Key_Minus:
        emit ZoomStep(-1);
        return true;
    default:
        return false;
    }
}

void CPlanWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        if (!event->isAutoRepeat()) {
            spaceHeld_ = true;
            RestoreCursor();
        }
        event->accept();
        return;
    }
    if (view_.Scaled() && Navigate(*event)) {
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

void CPlanWidget::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        spaceHeld_ = false;
        RestoreCursor();
        event->accept();
        return;
    }
    QWidget::keyReleaseEvent(event);
}

// A Space let go in another window must not leave the plan in dragging mode.
void CPlanWidget::focusOutEvent(QFocusEvent* event) {
    spaceHeld_ = false;
    RestoreCursor();
    QWidget::focusOutEvent(event);
}

void CPlanWidget::resizeEvent(QResizeEvent* event) {
    deferred_ = true;
    emit Resized();
    QWidget::resizeEvent(event);
}

} // namespace kavrin
