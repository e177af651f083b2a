#include "app/modDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

std::string NormalPath(const std::string& path) {
    if (path.empty())
        return {};
    return QDir::toNativeSeparators(QFileInfo(QString::fromStdString(path)).absoluteFilePath()).toStdString();
}

std::string OpenLayoutDialog(QWidget* parent, const std::string& initialDirectory) {
    QString filter = QtFileFilter(FormatMessage("EEP Anlagen (*.anl3)|*.anl3|Alle Dateien (*.*)|*.*"));
    QString file = QFileDialog::getOpenFileName(parent, ToQt(FormatMessage("Anlagendatei auswählen")),
                                                QString::fromStdString(initialDirectory), filter);
    return NormalPath(file.toStdString());
}

std::string SaveFileDialog(QWidget* parent, const std::string& initialDirectory, const std::string& extension,
                           bool confirmOverwrite) {
    QFileDialog dialog(parent, ToQt(FormatMessage("Speichern unter")),
                       QString::fromStdString(initialDirectory), QtFileFilter(SaveFileFilter(extension)));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !confirmOverwrite);
    if (extension.size() > 1)
        dialog.setDefaultSuffix(QString::fromStdString(extension.substr(1)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return NormalPath(dialog.selectedFiles().first().toStdString());
}

} // namespace kavrin
