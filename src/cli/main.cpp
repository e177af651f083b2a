#include <csignal>
#include <iostream>

#include "cli/CCommandLine.h"

#ifdef KAVRIN_CLI_WITH_QT
#include <QGuiApplication>
#include <memory>

#include "app/COptions.h"
#include "app/modPlanExport.h"

namespace {
// Text on pictures needs a GUI application; it is started only for the command that draws,
// on the display-less platform unless the user chose one.
void InstallPlanRenderer(kavrin::CCommandLine& commandLine, std::unique_ptr<QGuiApplication>& app) {
    commandLine.SetRenderer(
        [&app](int width, int height, const std::function<bool(kavrin::Canvas&)>& draw,
               const std::string& path, std::string& error) {
            if (!QGuiApplication::instance()) {
                if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                    qputenv("QT_QPA_PLATFORM", "offscreen");
                // Drawing needs no runtime folder; Qt's warning that there is none is dropped.
                qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
                    if (type != QtDebugMsg && !message.startsWith(QLatin1String("QStandardPaths:")))
                        std::cerr << message.toStdString() << '\n';
                });
                static int argc = 1;
                static char name[] = "kavrin-cli";
                static char* argv[] = {name, nullptr};
                app = std::make_unique<QGuiApplication>(argc, argv);
            }
            return kavrin::WritePlanPicture(width, height, draw, path, error);
        },
        [] { return static_cast<kavrin::CViewOptions>(kavrin::COptions()); });
}
} // namespace
#endif

int main(int argc, char** argv) {
    // A file-size limit makes a write fail with an error the save reports, instead of ending
    // the program with the signal.
    std::signal(SIGXFSZ, SIG_IGN);
    std::vector<std::string> args(argv + 1, argv + argc);
    kavrin::CCommandLine commandLine(std::cout, std::cerr);
#ifdef KAVRIN_CLI_WITH_QT
    std::unique_ptr<QGuiApplication> app;
    InstallPlanRenderer(commandLine, app);
#endif
    return commandLine.Run(args);
}
