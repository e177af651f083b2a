#pragma once

#include <string>

class QWidget;

namespace kavrin {

// The file dialogs of the program. Both answer an absolute path with the separators of this
// system, or an empty text when the user cancelled.

// Open dialog for layouts: title "Anlagendatei auswählen", layouts and all files.
std::string OpenLayoutDialog(QWidget* parent, const std::string& initialDirectory);
// Save dialog: one filter entry made from the extension, which is also the default one;
// asks before overwriting unless the caller asks itself.
std::string SaveFileDialog(QWidget* parent, const std::string& initialDirectory, const std::string& extension,
                           bool confirmOverwrite = true);

// A path as the program keeps it: absolute, with the separators of this system.
std::string NormalPath(const std::string& path);

} // namespace kavrin
