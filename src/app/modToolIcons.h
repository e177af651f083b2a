#pragma once

#include <QIcon>
#include <QString>

namespace kavrin {

// The pictures of the plan window's toolbar, drawn here so that the program needs no image
// files: "ZoomIn", "ZoomOut", "World", "Names", "Signals", "HeightFilter", "MousePointer",
// "MouseMover" and "SaveAs". An unknown key gives an empty icon.
QIcon PlanToolIcon(const QString& key);

} // namespace kavrin
