#pragma once

class QMdiArea;
class QMdiSubWindow;

namespace kavrin {

// Places the document windows inside the main window's frame: the commands of the Fenster menu
// and the place of a newly opened window.
class CWindowArranger {
public:
    explicit CWindowArranger(QMdiArea& area) : area_(area) {}

    // 0 cascade, 1 tile horizontally, 2 tile vertically, 3 arrange icons, 4 minimise all;
    // any other number leaves the windows as they are.
    void Arrange(int mode);
    // The first window fills the frame; each further one takes two thirds of it, a step below and
    // to the right of the one before, like a cascade. `others` counts the windows already open.
    void PlaceNew(QMdiSubWindow& sub, int others) const;

private:
    void Tile(bool horizontally);
    void ArrangeIcons();

    QMdiArea& area_;
};

} // namespace kavrin
