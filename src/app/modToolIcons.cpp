#include "app/modToolIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace kavrin {

namespace {
constexpr int kSize = 24;
const QColor kInk(0x30, 0x38, 0x40);
const QColor kAccent(0x1f, 0x6f, 0xc0);

QIcon Drawn(const std::function<void(QPainter&)>& draw) {
    QPixmap pixmap(kSize * 2, kSize * 2);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(2, 2); // drawn at twice the size, sharp on high-density screens as well
    painter.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    draw(painter);
    return QIcon(pixmap);
}

void Magnifier(QPainter& p, bool plus) {
    p.drawEllipse(QPointF(10, 10), 6.5, 6.5);
    p.setPen(QPen(kInk, 3, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(15, 15), QPointF(21, 21));
    p.setPen(QPen(kAccent, 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(7, 10), QPointF(13, 10));
    if (plus)
        p.drawLine(QPointF(10, 7), QPointF(10, 13));
}

void World(QPainter& p) {
    p.drawRect(QRectF(4, 5, 16, 14));
    p.setPen(QPen(kAccent, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF corners[4][3] = {{{1, 5}, {1, 2}, {4, 2}},
                                   {{20, 2}, {23, 2}, {23, 5}},
                                   {{23, 19}, {23, 22}, {20, 22}},
                                   {{4, 22}, {1, 22}, {1, 19}}};
    for (const auto& corner : corners)
        p.drawPolyline(corner, 3);
}

// Corners around a piece of track: the view closes in on what the layout holds.
void Content(QPainter& p) {
    QPainterPath track;
    track.moveTo(6, 17);
    track.cubicTo(10, 17, 12, 7, 18, 7);
    p.drawPath(track);
    p.setPen(QPen(kAccent, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF corners[4][3] = {{{2, 7}, {2, 2}, {7, 2}},
                                   {{17, 2}, {22, 2}, {22, 7}},
                                   {{22, 17}, {22, 22}, {17, 22}},
                                   {{7, 22}, {2, 22}, {2, 17}}};
    for (const auto& corner : corners)
        p.drawPolyline(corner, 3);
}

void Names(QPainter& p) {
    QFont font = p.font();
    font.setPixelSize(15);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(0, 0, kSize, kSize - 4), Qt::AlignCenter, QStringLiteral("Ab"));
    p.setPen(QPen(kAccent, 2));
    p.drawLine(QPointF(4, 21), QPointF(20, 21));
}

void Signals(QPainter& p) {
    p.drawLine(QPointF(12, 16), QPointF(12, 23));
    p.setBrush(QColor(0x40, 0x40, 0x40));
    p.drawRoundedRect(QRectF(7, 1, 10, 16), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xe0, 0x30, 0x30));
    p.drawEllipse(QPointF(12, 5.5), 2.5, 2.5);
    p.setBrush(QColor(0x30, 0xc0, 0x50));
    p.drawEllipse(QPointF(12, 12), 2.5, 2.5);
}

void HeightFilter(QPainter& p) {
    p.setPen(QPen(kAccent, 2, Qt::DashLine, Qt::RoundCap));
    p.drawLine(QPointF(2, 6), QPointF(22, 6));
    p.drawLine(QPointF(2, 18), QPointF(22, 18));
    p.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath hill;
    hill.moveTo(3, 15);
    hill.cubicTo(8, 8, 14, 8, 21, 15);
    p.drawPath(hill);
}

void Pointer(QPainter& p) {
    const QPointF arrow[] = {{6, 2}, {6, 19}, {10, 15}, {13, 22}, {16, 21}, {13, 14}, {18, 14}};
    p.setBrush(Qt::white);
    p.drawPolygon(arrow, 7);
}

void Mover(QPainter& p) {
    p.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawLine(QPointF(12, 2), QPointF(12, 22));
    p.drawLine(QPointF(2, 12), QPointF(22, 12));
    const QPointF heads[4][3] = {{{9, 5}, {12, 2}, {15, 5}},
                                 {{9, 19}, {12, 22}, {15, 19}},
                                 {{5, 9}, {2, 12}, {5, 15}},
                                 {{19, 9}, {22, 12}, {19, 15}}};
    for (const auto& head : heads)
        p.drawPolyline(head, 3);
}

void SaveAs(QPainter& p) {
    p.setBrush(QColor(0xd8, 0xe4, 0xf0));
    p.drawRoundedRect(QRectF(3, 3, 15, 17), 2, 2);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(6, 12, 9, 8));
    p.setPen(QPen(kAccent, 2.5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(14, 21), QPointF(21, 14)); // the pen that writes the new name
}
} // namespace

QIcon PlanToolIcon(const QString& key) {
    if (key == QLatin1String("ZoomIn"))
        return Drawn([](QPainter& p) { Magnifier(p, true); });
    if (key == QLatin1String("ZoomOut"))
        return Drawn([](QPainter& p) { Magnifier(p, false); });
    if (key == QLatin1String("World"))
        return Drawn(World);
    if (key == QLatin1String("Content"))
        return Drawn(Content);
    if (key == QLatin1String("Names"))
        return Drawn(Names);
    if (key == QLatin1String("Signals"))
        return Drawn(Signals);
    if (key == QLatin1String("HeightFilter"))
        return Drawn(HeightFilter);
    if (key == QLatin1String("MousePointer"))
        return Drawn(Pointer);
    if (key == QLatin1String("MouseMover"))
        return Drawn(Mover);
    if (key == QLatin1String("SaveAs"))
        return Drawn(SaveAs);
    return {};
}

} // namespace kavrin
