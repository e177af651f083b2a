#include "app/CAppIcon.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <cmath>

namespace kavrin {

QPixmap CAppIcon::Pixmap(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const double s = size;

    QLinearGradient background(0, 0, 0, s);
    background.setColorAt(0, QColor(0x3d, 0x8b, 0x5a));
    background.setColorAt(1, QColor(0x1f, 0x5c, 0x3a));
    painter.setPen(Qt::NoPen);
    painter.setBrush(background);
    painter.drawRoundedRect(QRectF(0.04 * s, 0.04 * s, 0.92 * s, 0.92 * s), 0.18 * s, 0.18 * s);

    // A quarter circle of track around the lower-left corner: sleepers, then two rails.
    const QPointF centre(0.12 * s, 0.88 * s);
    const double inner = 0.46 * s;
    const double outer = 0.64 * s;
    painter.setPen(QPen(QColor(0xc9, 0xa8, 0x7c), std::max(1.0, 0.05 * s), Qt::SolidLine, Qt::FlatCap));
    for (int i = 0; i <= 6; ++i) {
        double angle = (5.0 + i * 13.3) * M_PI / 180.0;
        QPointF direction(std::cos(angle), -std::sin(angle));
        painter.drawLine(centre + direction * (inner - 0.06 * s), centre + direction * (outer + 0.06 * s));
    }
    painter.setPen(QPen(QColor(0xf2, 0xf2, 0xf2), std::max(1.0, 0.045 * s)));
    painter.setBrush(Qt::NoBrush);
    for (double radius : {inner, outer})
        painter.drawArc(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), 0, 90 * 16);
    return pixmap;
}

QIcon CAppIcon::Icon() {
    QIcon icon;
    for (int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(Pixmap(size));
    return icon;
}

} // namespace kavrin
