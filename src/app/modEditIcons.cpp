#include "app/modEditIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <functional>

namespace kavrin {

namespace {
constexpr int kSize = 24;
const QColor kInk(0x30, 0x38, 0x40);
const QColor kAccent(0x1f, 0x6f, 0xc0);
const QColor kCentre(0xff, 0x00, 0xff);

QPixmap Drawn(int size, const std::function<void(QPainter&)>& draw) {
    QPixmap pixmap(size * 2, size * 2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(2.0 * size / kSize, 2.0 * size / kSize); // drawn on a 24 x 24 grid, twice as sharp
    painter.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    draw(painter);
    painter.end();
    pixmap.setDevicePixelRatio(2);
    return pixmap;
}

// A head at `tip` pointing along the angle (degrees, y down as on screen).
void Head(QPainter& p, QPointF tip, double degrees) {
    const double r = degrees * 3.14159265358979 / 180;
    const QPointF back(-std::cos(r) * 6, -std::sin(r) * 6);
    const QPointF side(-std::sin(r) * 4, std::cos(r) * 4);
    const QPointF head[] = {tip + back + side, tip, tip + back - side};
    p.drawPolyline(head, 3);
}

// Back (undo) or forth (redo): a hook-shaped arrow.
void Hook(QPainter& p, bool forth) {
    if (forth) {
        p.translate(kSize, 0);
        p.scale(-1, 1);
    }
    QPainterPath path;
    path.moveTo(20, 19);
    path.cubicTo(20, 8, 12, 7, 5, 9);
    p.setPen(QPen(kAccent, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(path);
    Head(p, QPointF(4, 9.5), 175);
}

// Three quarters of a circle and the head showing the way round.
void Turn(QPainter& p, bool right) {
    p.setPen(QPen(kAccent, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRectF circle(4, 4, 16, 16);
    // Qt counts arc angles counter-clockwise; both arcs end at the bottom of the circle.
    if (right) {
        p.drawArc(circle, 180 * 16, -270 * 16);
        Head(p, QPointF(12, 20), 180);
    } else {
        p.drawArc(circle, 0, 270 * 16);
        Head(p, QPointF(12, 20), 0);
    }
}

void Centre(QPainter& p) {
    p.setPen(QPen(kCentre, 2));
    p.drawEllipse(QPointF(12, 12), 5, 5);
    p.drawLine(QPointF(2, 12), QPointF(22, 12));
    p.drawLine(QPointF(12, 2), QPointF(12, 22));
}
} // namespace

QIcon EditToolIcon(const QString& key) {
    if (key == QLatin1String("Undo"))
        return QIcon(Drawn(kSize, [](QPainter& p) { Hook(p, false); }));
    if (key == QLatin1String("Redo"))
        return QIcon(Drawn(kSize, [](QPainter& p) { Hook(p, true); }));
    if (key == QLatin1String("RotLeft"))
        return QIcon(RotationArrow(false, kSize));
    if (key == QLatin1String("RotRight"))
        return QIcon(RotationArrow(true, kSize));
    if (key == QLatin1String("RotCenter"))
        return QIcon(Drawn(kSize, Centre));
    return {};
}

QPixmap RotationArrow(bool right, int size) {
    return Drawn(size, [right](QPainter& p) { Turn(p, right); });
}

} // namespace kavrin
