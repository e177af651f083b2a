#pragma once

#include <QImage>
#include <QPoint>
#include <QWidget>
#include <memory>

namespace kavrin {

class CAnlage;
class CPlanPainter;
class CPlanView;
class CViewOptions;

// The plan's picture (picPlan). The layout is drawn into a cached image, so that repaints
// caused by overlapping windows, menus or a drag cost a copy, not a DrawAll. The cache is
// redrawn after Invalidate; while a resize is pending (Defer) the old picture is shown as is.
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

signals:
    // The mouse is at a world position; MouseLeft when it has left the plan.
    void MouseAt(double worldX, double worldY);
    void MouseLeft();
    // The plan was dragged with the mover tool by a distance in pixels.
    void Dragged(QPoint distance);
    // Wheel notches (positive: towards the user's screen, zoom in) at a pixel position.
    void WheelZoom(int notches, QPointF position);
    // The picture changed its size (the drawing is deferred until Invalidate).
    void Resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool DrawAllSafely(QImage& image);
    QColor BackgroundColor() const;

    const CAnlage& anlage_;
    CPlanView& view_;
    const CViewOptions& options_;
    std::unique_ptr<CPlanPainter> painter_;
    QImage cache_;
    bool stale_ = true;
    bool deferred_ = false;
    bool drawn_ = false;
    Tool tool_ = Tool::Pointer;
    bool dragging_ = false;
    QPoint dragStart_;
    QPoint dragOffset_;
    int wheelRest_ = 0;
};

} // namespace kavrin
