#include "app/modShell.h"

#include <QDesktopServices>
#include <QUrl>
#include <QWidget>

#include "core/modTools.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace kavrin {

namespace {
constexpr int kSuccess = 33;

std::function<int(const std::string&)>& Handler() {
    static std::function<int(const std::string&)> handler;
    return handler;
}
} // namespace

void SetShellOpenHandler(std::function<int(const std::string&)> handler) {
    Handler() = std::move(handler);
}

int ShellOpen(const std::string& path, QWidget* parent) {
    if (Handler())
        return Handler()(path);
#ifdef _WIN32
    HWND window = parent ? reinterpret_cast<HWND>(parent->winId()) : nullptr;
    std::wstring file = QString::fromStdString(path).toStdWString();
    return static_cast<int>(reinterpret_cast<INT_PTR>(
        ShellExecuteW(window, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL)));
#else
    // The desktop's opener only tells success or failure; it fails when no program takes the
    // file's type, which is what the shell's 31 means.
    (void)parent;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path))) ? kSuccess
                                                                                        : kShellNoAssociation;
#endif
}

std::string ShellOpenErrorText(const std::string& path, int result) {
    if (result > 32)
        return {};
    std::string text = FormatMessage("Sorry, aber die Datei%m%1%mkann nicht angezeigt werden", path);
    if (result == kShellNoAssociation) {
        size_t dot = path.rfind('.');
        std::string extension = dot == std::string::npos ? std::string() : path.substr(dot);
        return text + FormatMessage(
                          ",%nweil auf Ihrem Rechner kein Programm für die Dateiendung '%2' zuständig ist.",
                          path, extension);
    }
    return text + FormatMessage(".%m(Fehler-Code: %2)", path, result);
}

} // namespace kavrin
