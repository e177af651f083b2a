#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace kavrin {

// The pictures of the editing commands, drawn here so that the program needs no image files:
// "Undo", "Redo" (curved arrows back and forth), "RotLeft", "RotRight" (a turn counter-clockwise
// and clockwise) and "RotCenter" (the rotation centre's cross). An unknown key gives an empty icon.
QIcon EditToolIcon(const QString& key);
// The arrow of a turn to the left or to the right, `size` pixels square.
QPixmap RotationArrow(bool right, int size);

} // namespace kavrin
