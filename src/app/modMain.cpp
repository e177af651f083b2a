#include "app/modMain.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QLockFile>
#include <QTranslator>
#include <algorithm>
#include <csignal>

#include "app/CAppIcon.h"
#include "app/CInstanceChannel.h"
#include "app/CQtUserInterface.h"
#include "app/CSafeApplication.h"
#include "app/CSettingsStore.h"
#include "app/FMain.h"
#include "app/modDialogs.h"
#include "app/modParams.h"
#include "app/modQtText.h"
#include "app/modRegApi.h"
#include "core/CStringPack.h"
#include "core/modTools.h"
#include "nodes/CObjectTexte.h"

namespace kavrin {

namespace {

const char* const kTrackClassIds[] = {
    "06D80C90-4E4B-469B-BFE0-509A573EBC99", "2E25C8E2-ADCD-469A-942E-7484556FF932",
    "C889EADB-63B5-44A2-AAB9-457424CFF15F", "B0818DD8-5DFD-409F-8022-993FD3C90759"};

// Numbers shown to the user follow the user's locale.
void TakeUserNumberFormat() {
    QLocale locale = QLocale::system();
    UserNumberFormat format;
    format.decimal = locale.decimalPoint().at(0).toLatin1();
    format.thousands = locale.groupSeparator().isEmpty() ? '.' : locale.groupSeparator().at(0).toLatin1();
    if (format.decimal == 0)
        format.decimal = ',';
    if (format.thousands == 0 || format.thousands == format.decimal)
        format.thousands = format.decimal == ',' ? '.' : ',';
    SetUserNumberFormat(format);
}

// The program speaks German; Qt's own dialogs should too, when the translations are there.
void InstallGermanQtTexts(QApplication& app) {
    static QTranslator translator;
    if (translator.load(QLocale(QLocale::German), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        app.installTranslator(&translator);
}

// Keeps the port installed for as long as the program runs.
class PortScope {
public:
    explicit PortScope(IUserInterface* ui) : previous_(SetUI(ui)) {}
    ~PortScope() { SetUI(previous_); }
    PortScope(const PortScope&) = delete;
    PortScope& operator=(const PortScope&) = delete;

private:
    IUserInterface* previous_;
};

std::vector<std::string> Arguments(const QStringList& arguments) {
    std::vector<std::string> list;
    for (qsizetype i = 1; i < arguments.size(); ++i)
        list.push_back(arguments[i].toStdString());
    return list;
}

// The layouts of the command line as absolute paths, for the instance that is running already
// (its working folder is not this one's).
QStringList HandOverFiles(const QStringList& arguments) {
    QStringList files;
    for (const std::string& name : SplitParams(JoinArguments(Arguments(arguments))))
        if (!name.empty())
            files << QString::fromStdString(NormalPath(name));
    return files;
}

const char* const kAskSection = "Settings";
const char* const kAskKey = "AskNoResourceDir";

// The start-up question about the missing resource directory, with "Nicht mehr fragen": a Yes
// with the box ticked starts without asking from then on.
bool StartWithoutResourceDirectory() {
    if (CSettingsStore::Get(kAskSection, kAskKey) == "0")
        return true;
    const std::string question =
        FormatMessage("Kann das EEP Resourcen-Verzeichnis nicht finden!%m"
                      "(Evtl. alle EEP-Versionen im EEP-Launcher deaktiviert?)%m"
                      "Einige Funktionen vom Kavrin können daher nicht ausgeführt werden!%m"
                      "Möchten Sie Kavrin trotzdem starten?");
    auto* qtPort = dynamic_cast<CQtUserInterface*>(&UI());
    bool dontAskAgain = false;
    const bool start = qtPort ? qtPort->AskWithDontAskAgain(question, dontAskAgain) : Ask(question);
    if (start && dontAskAgain)
        CSettingsStore::Save(kAskSection, kAskKey, "0");
    return start;
}

} // namespace

bool AskAboutMissingResourceDirectory() {
    return CSettingsStore::Get(kAskSection, kAskKey) != "0";
}

void SetAskAboutMissingResourceDirectory(bool ask) {
    if (ask)
        CSettingsStore::Delete(kAskSection, kAskKey);
    else
        CSettingsStore::Save(kAskSection, kAskKey, "0");
}

EepInstallation& Installation() {
    static EepInstallation installation;
    return installation;
}

int32_t ClampHoeheMax(int32_t stored) {
    return std::max(stored, 10000);
}

int32_t ClampHoeheMin(int32_t stored) {
    return std::max(std::min(stored, -10000), -10000);
}

bool ReadInstallation(const EepRegistry& values) {
    EepInstallation& installation = Installation();
    installation.eepDirectory = values.directory.empty() ? std::string() : HostPath(values.directory);
    installation.resourceDirectory = values.resBase.empty() ? std::string() : HostPath(values.resBase);
    installation.hoeheMax = ClampHoeheMax(values.hoeheMax);
    installation.hoeheMin = ClampHoeheMin(values.hoeheMin);
    installation.noResourceDirectory = installation.resourceDirectory.empty();
    installation.noTrackStyleDirectory = true;
    if (installation.noResourceDirectory) {
        if (!StartWithoutResourceDirectory())
            return false;
    } else {
        installation.noTrackStyleDirectory =
            !DirectoryExists(JoinPath(installation.resourceDirectory, "Gleisstile"));
    }
    return CObjectTexte::Load(installation.resourceDirectory);
}

bool ResourceDirectoryMissing() {
    if (!Installation().noResourceDirectory)
        return false;
    ErrorBox(FormatMessage("Da Kavrin das EEP Resourcen-Verzeichnist nicht finden konnte,%n"
                           "wird diese Funktion nicht ausgeführt!"));
    return true;
}

bool ResourcenPakExists() {
    const EepInstallation& installation = Installation();
    if (installation.noResourceDirectory)
        return false;
    return FileExists(JoinPath(installation.resourceDirectory, "RESOURCEN.PAK"));
}

std::string LayoutsDirectory() {
    std::string path = CSettingsStore::Get("Settings", "PathAnlagen");
    if (path != CSettingsStore::kNoEntry)
        return path;
    const EepInstallation& installation = Installation();
    if (installation.noResourceDirectory)
        return {};
    return JoinPath(installation.resourceDirectory, "Anlagen");
}

void RegisterTrackClassIds() {
    std::array<int16_t, 4>& ids = Installation().trackClassIds;
    for (size_t i = 0; i < ids.size(); ++i)
        ids[i] = ClassTexts().PutString(kTrackClassIds[i]);
}

std::unique_ptr<QLockFile> AcquireInstanceLock(const QString& directory) {
    QString user = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    auto lock =
        std::make_unique<QLockFile>(QDir(directory).filePath(QStringLiteral("Kavrin-%1.lock").arg(user)));
    // Only a lock whose process has ended is stale, however long Kavrin has been running.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return nullptr;
    return lock;
}

int Main(int argc, char** argv) {
    // A file-size limit makes a write fail with an error the save reports, instead of ending
    // the program with the signal.
    std::signal(SIGXFSZ, SIG_IGN);
    CSafeApplication app(argc, argv);
    QApplication::setApplicationName(QString::fromUtf8(kProgramName));
    QApplication::setOrganizationName(QString::fromUtf8(kProgramName));
    QApplication::setApplicationVersion(QStringLiteral(KAVRIN_VERSION));
    QApplication::setWindowIcon(CAppIcon::Icon());
    // Desktops find the installed menu entry, icon and file type by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("kavrin"));
    InstallGermanQtTexts(app);
    TakeUserNumberFormat();

    CQtUserInterface ui;
    PortScope port(&ui);
    // The lock decides which start is the first; a later one hands its files to it and ends
    // without a word. Only when the first cannot be reached is the user told.
    std::unique_ptr<QLockFile> lock = AcquireInstanceLock(QDir::tempPath());
    if (!lock) {
        if (CInstanceChannel::HandOver(HandOverFiles(QApplication::arguments())))
            return 0;
        ErrorBox(FormatMessage("Läuft schon..."));
        return 1;
    }
    CInstanceChannel channel;
    channel.Listen();

    FMain mainWindow(ui);
    ui.SetMainWindow(&mainWindow);
    QObject::connect(&channel, &CInstanceChannel::FilesReceived, &mainWindow, &FMain::OpenHandedOver);
    mainWindow.show();
    if (!ReadInstallation(ReadEepRegistry())) {
        mainWindow.close();
        return 0;
    }
    mainWindow.ShowInstallation();
    try {
        mainWindow.ProcessParams(JoinArguments(Arguments(QApplication::arguments())));
    } catch (...) {
        ReportCurrentError("modMain.Main");
    }
    return QApplication::exec();
}

} // namespace kavrin
