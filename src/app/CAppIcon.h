#pragma once

#include <QIcon>

namespace kavrin {

// The program's icon, painted at every size it is needed in (a piece of curved track).
class CAppIcon {
public:
    static QIcon Icon();
    static QPixmap Pixmap(int size);
};

} // namespace kavrin
