#include "app/modPlanExport.h"

#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <algorithm>
#include <cmath>

#include "app/CQtCanvas.h"
#include "app/CSvgCanvas.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "plan/CPlanPainter.h"
#include "plan/CPlanView.h"

namespace kavrin {

bool WritePlanPng(int width, int height, const std::function<bool(Canvas&)>& draw, const std::string& path,
                  std::string& error) {
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull()) {
        error = FormatMessage("Für ein Bild von %1 x %2 Pixeln reicht der Speicher nicht.", width, height);
        return false;
    }
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing, kPlanAntialiasing);
        CQtCanvas canvas(painter, image);
        draw(canvas);
    }
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit()) {
        error = FormatMessage("Das Bild%n%1%nkonnte nicht gespeichert werden:%n%2", path,
                              FromQt(file.errorString()));
        return false;
    }
    return true;
}

bool WritePlanSvg(int width, int height, const std::function<bool(Canvas&)>& draw, const std::string& path,
                  std::string& error) {
    CSvgCanvas canvas(width, height);
    draw(canvas);
    const std::string document = canvas.Document();
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(document.data(), static_cast<qint64>(document.size())) !=
            static_cast<qint64>(document.size()) ||
        !file.commit()) {
        error = FormatMessage("Das Bild%n%1%nkonnte nicht gespeichert werden:%n%2", path,
                              FromQt(file.errorString()));
        return false;
    }
    return true;
}

bool IsSvgName(const std::string& path) {
    return QString::fromStdString(path).endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
}

bool WritePlanPicture(int width, int height, const std::function<bool(Canvas&)>& draw,
                      const std::string& path, std::string& error) {
    return IsSvgName(path) ? WritePlanSvg(width, height, draw, path, error)
                           : WritePlanPng(width, height, draw, path, error);
}

bool ExportPlan(CAnlage& anlage, const CPlanView& windowView, const CViewOptions& options,
                const CPlanPainter& look, bool wholeLayout, int width, const std::string& path,
                std::string& error) {
    CPlanView view = windowView;
    const double aspect = wholeLayout ? view.Aspect() : view.Width() / -view.Height();
    if (!view.Scaled() || width < 1 || !(aspect > 0)) {
        error = FormatMessage("Es gibt keinen Plan zu exportieren.");
        return false;
    }
    const int height = std::max(1, static_cast<int>(std::lround(width / aspect)));
    view.SetClientSize(width, height);
    if (wholeLayout)
        view.World();
    view.ScalePlan();
    CPlanPainter painter(anlage, view, options);
    painter.WithNames = look.WithNames;
    painter.WithSignals = look.WithSignals;
    painter.Background = look.Background;
    return WritePlanPicture(
        width, height, [&painter](Canvas& canvas) { return painter.DrawAll(canvas); }, path, error);
}

} // namespace kavrin
