#include "app/modQtText.h"

#include <cmath>

#include <QStringList>

#include "core/modTools.h"

namespace kavrin {

QString ToQt(const std::string& text) {
    QString qt = QString::fromStdString(text);
    qt.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return qt;
}

std::string FromQt(const QString& text) {
    return text.toStdString();
}

QString QtFileFilter(const std::string& windowsFilter) {
    QStringList parts = QString::fromStdString(windowsFilter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        QString patterns = parts[i + 1].trimmed();
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        if (!description.contains(QLatin1Char('(') + patterns + QLatin1Char(')')))
            description += QLatin1String(" (") + patterns + QLatin1Char(')');
        filters << description;
    }
    return filters.join(QLatin1String(";;"));
}

QColor ColorFromBgr(uint32_t bgr) {
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}

uint32_t BgrFromColor(const QColor& color) {
    return static_cast<uint32_t>(color.red()) | static_cast<uint32_t>(color.green()) << 8 |
           static_cast<uint32_t>(color.blue()) << 16;
}

std::string JoinPath(const std::string& directory, const std::string& name) {
#ifdef _WIN32
    return FormatMessage("%1\\%2", directory, name);
#else
    return FormatMessage("%1/%2", directory, name);
#endif
}

namespace {
QString Metres(double world, const QLocale& locale) {
    double metres = world / 100;
    // No "-0,00" for a position a hair left of the origin.
    if (std::fabs(metres) < 0.005)
        metres = 0;
    return locale.toString(metres, 'f', 2) + QLatin1String(" m");
}
} // namespace

QString CoordinateText(double worldX, double worldY, const QLocale& locale) {
    QLocale grouped = locale;
    grouped.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
    return QLatin1String("X: ") + Metres(worldX, grouped) + QLatin1String(", Y: ") + Metres(worldY, grouped);
}

} // namespace kavrin
