#pragma once

#include <QColor>
#include <QLocale>
#include <QString>
#include <cstdint>
#include <string>

namespace kavrin {

// A message text of the program (UTF-8, "\r\n" line breaks) as Qt shows it.
QString ToQt(const std::string& text);
std::string FromQt(const QString& text);

// A file filter of the Windows dialogs ("EEP Anlagen (*.anl3)|*.anl3|Alle Dateien (*.*)|*.*")
// in Qt's syntax ("EEP Anlagen (*.anl3);;Alle Dateien (*.*)"). A description that does not
// name its patterns gets them appended in brackets, as Qt needs them there.
QString QtFileFilter(const std::string& windowsFilter);

// "%1\%2" of a directory and a name, with the separator of this system.
std::string JoinPath(const std::string& directory, const std::string& name);

// Colours of the settings store: 24 bits with red in the low byte.
QColor ColorFromBgr(uint32_t bgr);
uint32_t BgrFromColor(const QColor& color);

// The mouse position on the plan: "X: 1.234,56 m, Y: -7,00 m" (world units are cm; metres
// with the thousands separator and two decimals of the locale).
QString CoordinateText(double worldX, double worldY, const QLocale& locale = QLocale());

} // namespace kavrin
