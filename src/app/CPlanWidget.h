#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QWidget>
#include <functional>
#include <memory>

namespace kavrin {

class CAnlage;
class CPlanPainter;
class CPlanView;
class CViewOptions;

// The plan's picture (picPlan). The layout is drawn into a cached image, so that repaints
// caused by overlapping windows, menus or a drag cost a copy, not a DrawAll. The cache is
// redrawn after Invalidate; while a resize is pending (Defer) the old picture is shown as is.
// It takes the keyboard focus when clicked: the arrow keys and PgUp/PgDn scroll, + and - zoom.
// The wheel (also with Ctrl) and a pinch zoom about the mouse, Shift+wheel scrolls sideways;
// the middle button, and the left one with Space held or the mover tool, drag the plan. Resting
// over an object shows what it is.
class CPlanWidget : public QWidget {
    Q_OBJECT
public:
    enum class Tool { Pointer, Mover };

    CPlanWidget(CAnlage& anlage, CPlanView& view, const CViewOptions& options, QWidget* parent = nullptr);
    ~CPlanWidget() override;

    // What DrawAll shows besides the layout (names, signals, background, rotation centre).
    CPlanPainter& Painter() { return *painter_; }

    // The drawing is out of date: redraw it at the next paint.
    void Invalidate();
    // The size is changing; keep the old drawing until Invalidate.
    void Defer() { deferred_ = true; }
    // Draws the layout into the cache now (DrawAll, with the wait cursor); false when nothing
    // could be drawn (no layout yet, empty picture).
    bool Render();
    bool Drawn() const { return drawn_; }
    const QImage& Picture() const { return cache_; }

    void SetTool(Tool tool);
    Tool CurrentTool() const { return tool_; }

    // The factor one wheel notch zooms by.
    static double WheelNotchFactor();
    // The tooltip of the object at a pixel position (kind, id, model, position ...); empty
    // where there is none.
    QString ToolTipAt(QPointF at) const;

    // The pointer tool: whether a press at a pixel position takes hold of the selection (then a
    // drag moves it), and what is drawn over the picture while it is dragged (the offset in pixels).
    std::function<bool(QPointF)> GrabsSelection;
    std::function<void(QPainter&, QPoint)> PaintDraggedSelection;
    // The next click picks a point (the rotation centre): a cross for a cursor, no dragging.
    void SetPointPicking(bool on);
    bool PointPicking() const { return pointPicking_; }

signals:
    // The mouse is at a world position; MouseLeft when it has left the plan.
    void MouseAt(double worldX, double worldY);
    void MouseLeft();
    // The plan was dragged by a distance in pixels (it follows the mouse).
    void Dragged(QPoint distance);
    // Zoom by a multiplier (above 1: closer) about a pixel position: wheel and pinch.
    void ZoomBy(double multiplier, QPointF position);
    // The view moves by a distance in pixels (x to the right, y down): keys and Shift+wheel.
    void ScrollBy(QPointF pixels);
    // One zoom step closer (+1) or farther (-1): the + and - keys.
    void ZoomStep(int direction);
    // The picture changed its size (the drawing is deferred until Invalidate).
    void Resized();
    // The layout has been drawn anew.
    void Rendered();
    // The pointer tool: a click, a rubber band (pixels, normalised) and a dragged selection let
    // go (distance in pixels), each with the keyboard modifiers held.
    void PointerClicked(QPointF position, Qt::KeyboardModifiers modifiers);
    void BandSelected(QRect band, Qt::KeyboardModifiers modifiers);
    void SelectionDropped(QPoint distance);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool DrawAllSafely(QImage& image);
    QColor BackgroundColor() const;
    // Whether a press of this button starts dragging the plan.
    bool StartsDrag(Qt::MouseButton button) const;
    void RestoreCursor();
    // Keys that scroll or zoom; false for any other key.
    bool Navigate(const QKeyEvent& event);
    void ShowToolTip(const QPoint& at, const QPoint& global);
    void PointerPressed(QMouseEvent* event);
    void PointerMoved(QMouseEvent* event);
    void PointerReleased(QMouseEvent* event);
    void PaintPointerWork(QPainter& painter);

    const CAnlage& anlage_;
    CPlanView& view_;
    const CViewOptions& options_;
    std::unique_ptr<CPlanPainter> painter_;
    QImage cache_;
    bool stale_ = true;
    bool deferred_ = false;
    bool drawn_ = false;
    bool drawFailureReported_ = false;
    Tool tool_ = Tool::Pointer;
    bool dragging_ = false;
    Qt::MouseButton dragButton_ = Qt::NoButton;
    bool spaceHeld_ = false;
    QPoint dragStart_;
    QPoint dragOffset_;
    // What the left button does with the pointer tool, from press to release.
    enum class Pointing { None, Pending, Band, MoveSelection } pointing_ = Pointing::None;
    QPoint pointStart_;
    QPoint pointNow_;
    bool pointPicking_ = false;
};

} // namespace kavrin
