#include "app/CWindowArranger.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>
#include <vector>

namespace kavrin {

void CWindowArranger::Arrange(int mode) {
    switch (mode) {
    case 0:
        area_.cascadeSubWindows();
        break;
    case 1:
        Tile(true);
        break;
    case 2:
        Tile(false);
        break;
    case 3:
        ArrangeIcons();
        break;
    case 4:
        for (QMdiSubWindow* sub : area_.subWindowList())
            sub->showMinimized();
        break;
    default:
        break;
    }
}

// Tiling horizontally stacks full-width windows from top to bottom; vertically puts
// full-height windows side by side. Minimised windows stay where they are.
void CWindowArranger::Tile(bool horizontally) {
    std::vector<QMdiSubWindow*> windows;
    for (QMdiSubWindow* sub : area_.subWindowList(QMdiArea::CreationOrder))
        if (!sub->isMinimized() && sub->isVisible())
            windows.push_back(sub);
    if (windows.empty())
        return;
    QRect area = area_.viewport()->rect();
    int count = static_cast<int>(windows.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* sub = windows[static_cast<size_t>(i)];
        if (sub->isMaximized())
            sub->showNormal();
        QRect cell = horizontally
                         ? QRect(0, area.height() * i / count, area.width(),
                                 area.height() * (i + 1) / count - area.height() * i / count)
                         : QRect(area.width() * i / count, 0,
                                 area.width() * (i + 1) / count - area.width() * i / count, area.height());
        sub->setGeometry(cell);
    }
}

void CWindowArranger::PlaceNew(QMdiSubWindow& sub, int others) const {
    QSize area = area_.viewport()->size();
    if (others == 0) {
        sub.setGeometry(0, 0, std::max(480, area.width()), std::max(320, area.height()));
        return;
    }
    const int step = 28;
    QSize size(std::max(480, area.width() * 2 / 3), std::max(320, area.height() * 2 / 3));
    int places =
        std::max(1, std::min((area.width() - size.width()) / step, (area.height() - size.height()) / step));
    int offset = (others % places) * step;
    sub.setGeometry(offset, offset, size.width(), size.height());
}

// Minimised windows in rows along the bottom edge of the frame.
void CWindowArranger::ArrangeIcons() {
    QRect area = area_.viewport()->rect();
    int x = 0;
    int bottom = area.height();
    for (QMdiSubWindow* sub : area_.subWindowList(QMdiArea::CreationOrder)) {
        if (!sub->isMinimized())
            continue;
        QSize size = sub->size();
        if (x > 0 && x + size.width() > area.width()) {
            x = 0;
            bottom -= size.height();
        }
        sub->move(x, bottom - size.height());
        x += size.width();
    }
}

} // namespace kavrin
