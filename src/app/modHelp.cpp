#include "app/modHelp.h"

#include <QCoreApplication>
#include <QDir>

#include "app/FHelpText.h"
#include "app/modQtText.h"
#include "app/modShell.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
void ReportMissing(const std::string& path) {
    ErrorBox(FormatMessage("Sorry,%naber ich kann die Datei%m%1%mnicht finden...", path));
}

bool ShowInside(QWidget* parent, const std::string& title, const std::string& path) {
    auto* window = new FHelpText(title, parent);
    if (!window->ShowFile(path)) {
        delete window;
        return false;
    }
    window->show();
    window->raise();
    return true;
}
} // namespace

std::string HelpFilePath(const std::string& name) {
    const QString programFolder = QCoreApplication::applicationDirPath();
    std::string path = JoinPath(FromQt(QDir::toNativeSeparators(programFolder)), name);
    if (FileExists(path))
        return path;
    std::string shared = FromQt(QDir::toNativeSeparators(
        QDir(programFolder).absoluteFilePath(QStringLiteral("../share/kavrin/") + ToQt(name))));
    return FileExists(shared) ? shared : path;
}

void ShowHelpFile(QWidget* parent, const std::string& name) {
    std::string path = HelpFilePath(name);
    if (!FileExists(path)) {
        ReportMissing(path);
        return;
    }
    std::string error = ShellOpenErrorText(path, ShellOpen(path, parent));
    if (!error.empty())
        ErrorBox(error);
}

void ShowGuide(QWidget* parent) {
    std::string path = HelpFilePath("KurzAnleitung.pdf");
    if (!FileExists(path)) {
        ReportMissing(path);
        return;
    }
    int result = ShellOpen(path, parent);
    std::string html = HelpFilePath("KurzAnleitung.html");
    if (result == kShellNoAssociation && FileExists(html) &&
        ShowInside(parent, FormatMessage("Kurzanleitung"), html))
        return;
    std::string error = ShellOpenErrorText(path, result);
    if (!error.empty())
        ErrorBox(error);
}

void ShowChangeList(QWidget* parent) {
    std::string path = HelpFilePath("WasIsNeu.txt");
    if (!FileExists(path)) {
        ReportMissing(path);
        return;
    }
    if (!ShowInside(parent, FormatMessage("Was ist neu?"), path))
        ErrorBox(FormatMessage("Sorry, aber die Datei%m%1%mkann nicht angezeigt werden", path));
}

} // namespace kavrin
