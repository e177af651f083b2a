#pragma once

#include <string>

class QWidget;

namespace kavrin {

// The help files that ship with Kavrin: the short guide and the change list.

// Where a help file lies: next to the program, or in the share folder of an installed Kavrin.
std::string HelpFilePath(const std::string& name);
// Opens a help file with the program the system has for it; failures are told as the shell's.
void ShowHelpFile(QWidget* parent, const std::string& name);
// The short guide as PDF with the system's viewer; without one, its HTML in a window of Kavrin.
void ShowGuide(QWidget* parent);
// The change list in a read-only window of Kavrin.
void ShowChangeList(QWidget* parent);

} // namespace kavrin
