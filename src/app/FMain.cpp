#include "app/FMain.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

#include "app/CMru.h"
#include "app/COptions.h"
#include "app/CPlanWidget.h"
#include "app/CQtUserInterface.h"
#include "app/CSettingsStore.h"
#include "app/CWindowArranger.h"
#include "app/FAbout.h"
#include "app/FAnlage.h"
#include "app/FOptSettings.h"
#include "app/FParseLogWindow.h"
#include "app/modDialogs.h"
#include "app/modHelp.h"
#include "app/modMain.h"
#include "app/modParams.h"
#include "app/modQtText.h"
#include "app/modShell.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
const char* const kWindowSection = "MainWindow";

QAction* AddAction(QMenu* menu, const char* name, const std::string& text) {
    QAction* action = menu->addAction(ToQt(text));
    action->setObjectName(QLatin1String(name));
    return action;
}

// The layouts among dropped files.
QStringList DroppedLayouts(const QMimeData* data) {
    QStringList files;
    if (!data || !data->hasUrls())
        return files;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile() && url.toLocalFile().endsWith(QLatin1String(".anl3"), Qt::CaseInsensitive))
            files << url.toLocalFile();
    return files;
}

// A path in a menu caption: a single "&" would underline the next letter.
std::string MenuPath(const std::string& path) {
    std::string text;
    for (char c : path)
        text += c == '&' ? std::string("&&") : std::string(1, c);
    return text;
}
} // namespace

FMain::FMain(CQtUserInterface& ui, QWidget* parent) : QMainWindow(parent), ui_(ui) {
    setObjectName(QStringLiteral("FMain"));
    setWindowTitle(ToQt(kProgramName));
    setMinimumSize(480, 320);
    setAcceptDrops(true);
    mdiArea_ = new QMdiArea(this);
    mdiArea_->setObjectName(QStringLiteral("mdiArea"));
    mdiArea_->setBackground(QColor(0x6b, 0x76, 0x80));
    setCentralWidget(mdiArea_);
    connect(mdiArea_, &QMdiArea::subWindowActivated, this, &FMain::UpdateMenuBar);
    statusBar()->setSizeGripEnabled(true);
    lblInstallation_ = new QLabel(statusBar());
    lblInstallation_->setObjectName(QStringLiteral("lblInstallation"));
    statusBar()->addPermanentWidget(lblInstallation_);

    LoadWindowState();
    RegisterTrackClassIds();
    mru_ = std::make_unique<CMru>();
    options_ = std::make_unique<COptions>();
    CreateActions();
    CreateMenus();
    CreateToolBar();
    UpdateMenuMruList();
    UpdateMenuBar();
}

FMain::~FMain() {
    // Document windows tell this window when they go; they must go while it is still whole.
    for (QMdiSubWindow* sub : mdiArea_->subWindowList())
        delete sub;
    anlagen_.clear();
}

void FMain::LoadWindowState() {
    QRect available = screen()->availableGeometry();
    resize(std::min(1280, available.width() * 9 / 10), std::min(860, available.height() * 9 / 10));
    move(available.center() - rect().center());
    QPoint defaultPosition = pos();

    int32_t x = CSettingsStore::GetNumber(kWindowSection, "x", -1);
    int32_t y = CSettingsStore::GetNumber(kWindowSection, "y", -1);
    int32_t w = CSettingsStore::GetNumber(kWindowSection, "w", -1);
    int32_t h = CSettingsStore::GetNumber(kWindowSection, "h", -1);
    if (x != -1)
        move(x, pos().y());
    if (y != -1)
        move(pos().x(), y);
    if (w != -1)
        resize(w, height());
    if (h != -1)
        resize(width(), h);

    // A position from a screen that is no longer there would hide the window.
    bool visible = false;
    for (QScreen* each : QGuiApplication::screens()) {
        QRect common = each->availableGeometry().intersected(QRect(pos(), size()));
        visible = visible || (common.width() >= 100 && common.height() >= 50);
    }
    if (!visible)
        move(defaultPosition);
    if (CSettingsStore::GetNumber(kWindowSection, "Maximized", 0) == 1)
        setWindowState(Qt::WindowMaximized);
}

void FMain::SaveWindowState() const {
    if (isMaximized()) {
        CSettingsStore::Save(kWindowSection, "Maximized", "1");
        return;
    }
    CSettingsStore::Save(kWindowSection, "Maximized", "0");
    if (isMinimized())
        return;
    CSettingsStore::Save(kWindowSection, "x", NumberToText(static_cast<float>(pos().x())));
    CSettingsStore::Save(kWindowSection, "y", NumberToText(static_cast<float>(pos().y())));
    CSettingsStore::Save(kWindowSection, "w", NumberToText(static_cast<float>(width())));
    CSettingsStore::Save(kWindowSection, "h", NumberToText(static_cast<float>(height())));
}

void FMain::CreateActions() {
    mnuFile_ = new QMenu(ToQt(FormatMessage("&Datei")), this);
    mnuFile_->setObjectName(QStringLiteral("mnuFile"));
    QAction* open = AddAction(mnuFile_, "mnuFileOpen", FormatMessage("Ö&ffnen ..."));
    open->setShortcut(QKeySequence::Open);
    open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    open->setStatusTip(ToQt(FormatMessage("Eine Anlage öffnen")));
    connect(open, &QAction::triggered, this, &FMain::FileOpen);
    mnuFile_->addSeparator()->setObjectName(QStringLiteral("mnuFileMruSep"));
    mnuFile_->addSeparator();
    QAction* quit = AddAction(mnuFile_, "mnuFileQuit", FormatMessage("&Beenden"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setStatusTip(ToQt(FormatMessage("Kavrin beenden")));
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void FMain::CreateMenus() {
    mnuOption_ = new QMenu(ToQt(FormatMessage("&Optionen")), this);
    mnuOption_->setObjectName(QStringLiteral("mnuOption"));
    connect(AddAction(mnuOption_, "mnuOptionView", FormatMessage("&Ansicht des Plans ...")),
            &QAction::triggered, this, &FMain::OptionPlan);
    connect(AddAction(mnuOption_, "mnuOptionSettings", FormatMessage("&Einstellungen ...")),
            &QAction::triggered, this, &FMain::OptionSettings);

    mnuWindow_ = new QMenu(ToQt(FormatMessage("&Fenster")), this);
    mnuWindow_->setObjectName(QStringLiteral("mnuWindow"));
    const std::pair<const char*, const char*> arrangements[] = {
        {"mnuWindowCascade", "Ü&berlappend"},
        {"mnuWindowTileHorizontal", "&Untereinander"},
        {"mnuWindowTileVertical", "&Nebeneinander"},
        {"mnuWindowArrangeIcons", "&Symbole anordnen"},
        {"mnuWindowMinimizeAll", "Alle &minimieren"}};
    for (int mode = 0; mode < 5; ++mode)
        connect(AddAction(mnuWindow_, arrangements[mode].first, FormatMessage(arrangements[mode].second)),
                &QAction::triggered, this, [this, mode] { ArrangeChildren(mode); });
    windowListSep_ = mnuWindow_->addSeparator();
    connect(mnuWindow_, &QMenu::aboutToShow, this, &FMain::FillWindowList);

    mnuHelp_ = new QMenu(ToQt(FormatMessage("&Hilfe")), this);
    mnuHelp_->setObjectName(QStringLiteral("mnuHelp"));
    QAction* handbook = AddAction(mnuHelp_, "mnuHelpHandbook", FormatMessage("&Kurzanleitung"));
    handbook->setShortcut(QKeySequence::HelpContents);
    handbook->setIcon(style()->standardIcon(QStyle::SP_DialogHelpButton));
    connect(handbook, &QAction::triggered, this, &FMain::ShowAnleitung);
    connect(AddAction(mnuHelp_, "mnuHelpWhatsNew", FormatMessage("&Was ist neu?")), &QAction::triggered, this,
            &FMain::ShowWasIsNeu);
    mnuHelp_->addSeparator();
    connect(AddAction(mnuHelp_, "mnuHelpInfo", FormatMessage("&Info über %1 ...", kProgramName)),
            &QAction::triggered, this, &FMain::ProgInfo);
}

void FMain::CreateToolBar() {
    QToolBar* bar = addToolBar(ToQt(FormatMessage("Werkzeuge")));
    bar->setObjectName(QStringLiteral("tbMain"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addAction(findChild<QAction*>(QStringLiteral("mnuFileOpen")));
    tbSave_ =
        bar->addAction(style()->standardIcon(QStyle::SP_DialogSaveButton), ToQt(FormatMessage("Speichern")));
    tbSave_->setObjectName(QStringLiteral("tbSave"));
    tbSave_->setStatusTip(ToQt(FormatMessage("Die aktive Anlage speichern")));
    connect(tbSave_, &QAction::triggered, this, [this] {
        if (FAnlage* active = ActiveAnlage())
            active->Save();
    });
    bar->addSeparator();
    bar->addAction(findChild<QAction*>(QStringLiteral("mnuHelpHandbook")));
}

// The menu bar shows the menus of the active document window, or this window's own file menu.
void FMain::UpdateMenuBar() {
    FAnlage* active = ActiveAnlage();
    menuBar()->clear();
    if (active) {
        for (QMenu* menu : active->Menus())
            menuBar()->addMenu(menu);
    } else {
        menuBar()->addMenu(mnuFile_);
    }
    menuBar()->addMenu(mnuOption_);
    menuBar()->addMenu(mnuWindow_);
    menuBar()->addMenu(mnuHelp_);
    if (tbSave_)
        tbSave_->setEnabled(active != nullptr);
    UpdateTitle();
}

// The "*" of a changed layout comes from the window's modified flag through the "[*]"
// placeholder: a maximised document window sets that flag on this window too.
QString FMain::MainTitle() const {
    FAnlage* active = ActiveAnlage();
    std::string name = active ? FromQt(QFileInfo(QString::fromStdString(active->FileName())).fileName()) : "";
    if (name.empty())
        return ToQt(kProgramName);
    return ToQt(FormatMessage("%1 - %2", kProgramName, name)) + QLatin1String("[*]");
}

QString FMain::ShownTitle() const {
    QString title = windowTitle();
    return title.replace(QLatin1String("[*]"), isWindowModified() ? QStringLiteral("*") : QString());
}

void FMain::UpdateTitle() {
    FAnlage* active = ActiveAnlage();
    setWindowTitle(MainTitle());
    setWindowModified(active && active->Changed());
}

// A maximised document window puts its own title into the main window's ("Kavrin - [x]");
// the main window names the active layout itself, once, and takes its title straight back.
// Qt ignores the title changes that happen while it sets its own, so this does not go round.
void FMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowTitleChange && windowTitle() != MainTitle())
        setWindowTitle(MainTitle());
}

void FMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedLayouts(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void FMain::dropEvent(QDropEvent* event) {
    const QStringList files = DroppedLayouts(event->mimeData());
    if (files.isEmpty())
        return;
    event->acceptProposedAction();
    // The drop's source waits until this returns; the loads run after it.
    QTimer::singleShot(0, this, [this, files] {
        for (const QString& file : files)
            OpenFile(FromQt(file));
    });
}

void FMain::ShowInstallation() {
    const EepInstallation& installation = Installation();
    lblInstallation_->setText(ToQt(installation.noResourceDirectory
                                       ? FormatMessage("EEP-Resourcen nicht gefunden")
                                       : FormatMessage("EEP-Resourcen: %1", installation.resourceDirectory)));
}

FAnlage* FMain::ActiveAnlage() const {
    QMdiSubWindow* sub = mdiArea_ ? mdiArea_->currentSubWindow() : nullptr;
    return sub ? qobject_cast<FAnlage*>(sub->widget()) : nullptr;
}

QMdiSubWindow* FMain::SubWindowOf(const FAnlage* window) const {
    for (QMdiSubWindow* sub : mdiArea_->subWindowList())
        if (sub->widget() == window)
            return sub;
    return nullptr;
}

void FMain::RemoveAnlage(const FAnlage* window) {
    for (auto it = anlagen_.begin(); it != anlagen_.end(); ++it)
        if (*it == window) {
            anlagen_.erase(it);
            return;
        }
}

void FMain::ArrangeChildren(int mode) {
    CWindowArranger(*mdiArea_).Arrange(mode);
}

void FMain::OptionPlan() {
    options_->AskUser(this);
    RepaintAnlagen();
}

void FMain::RepaintAnlagen() {
    for (FAnlage* window : anlagen_)
        window->RepaintPlan();
}

void FMain::ProgInfo() {
    FAbout about(this);
    about.exec();
}

void FMain::OptionSettings() {
    FOptSettings settings(this);
    settings.exec();
}

void FMain::ProcessParams(const std::string& commandLine) {
    for (const std::string& name : SplitParams(commandLine))
        if (!name.empty())
            OpenFile(name);
}

void FMain::FillMruMenu(QMenu* menu) {
    for (QAction* action : menu->actions())
        if (action->objectName() == QLatin1String("mnuFileMru")) {
            menu->removeAction(action);
            delete action;
        }
    QList<QAction*> actions = menu->actions();
    qsizetype separator = -1;
    for (qsizetype i = 0; i < actions.size(); ++i)
        if (actions[i]->objectName() == QLatin1String("mnuFileMruSep"))
            separator = i;
    if (separator < 0)
        return;
    actions[separator]->setVisible(mru_->Count() > 0);
    QAction* before = separator + 1 < actions.size() ? actions[separator + 1] : nullptr;
    for (int position = 1; position <= mru_->Count(); ++position) {
        auto* entry =
            new QAction(ToQt(FormatMessage("&%1 %2", position, MenuPath(mru_->Item(position)))), menu);
        entry->setObjectName(QStringLiteral("mnuFileMru"));
        entry->setData(position);
        connect(entry, &QAction::triggered, this, [this, position] { OpenMru(position); });
        menu->insertAction(before, entry);
    }
}

void FMain::UpdateMenuMruList() {
    FillMruMenu(mnuFile_);
    for (FAnlage* window : anlagen_)
        FillMruMenu(window->FileMenu());
}

void FMain::FillWindowList() {
    QList<QAction*> actions = mnuWindow_->actions();
    for (QAction* action : actions)
        if (action->objectName() == QLatin1String("mnuWindowList")) {
            mnuWindow_->removeAction(action);
            delete action;
        }
    windowListSep_->setVisible(!anlagen_.empty());
    int number = 1;
    for (FAnlage* window : anlagen_) {
        QMdiSubWindow* sub = SubWindowOf(window);
        if (!sub)
            continue;
        QString title = sub->windowTitle().replace(QLatin1String("[*]"), sub->isWindowModified() ? "*" : "");
        QAction* entry = mnuWindow_->addAction(QStringLiteral("&%1 %2").arg(number++).arg(title));
        entry->setObjectName(QStringLiteral("mnuWindowList"));
        entry->setCheckable(true);
        entry->setChecked(sub == mdiArea_->currentSubWindow());
        connect(entry, &QAction::triggered, this, [this, sub] { mdiArea_->setActiveSubWindow(sub); });
    }
}

void FMain::OpenMru(int index) {
    std::string file = mru_->Item(index);
    if (file.empty() || !FileExists(file)) {
        ErrorBox(FormatMessage("Sorry,%naber ich kann die Datei%m%1%mnicht finden...", file));
        return;
    }
    OpenFile(file);
}

void FMain::ShowAnleitung() {
    ShowGuide(this);
}

void FMain::ShowWasIsNeu() {
    ShowChangeList(this);
}

void FMain::ShowFile(const std::string& name) {
    ShowHelpFile(this, name);
}

void FMain::FileOpen() {
    std::string path = OpenLayoutDialog(this, LayoutsDirectory());
    if (!path.empty())
        OpenFile(path);
}

FAnlage* FMain::FindAnlage(const std::string& path) const {
    for (FAnlage* window : anlagen_)
        if (window->FileName() == path && !window->Loading())
            return window;
    return nullptr;
}

void FMain::Activate(FAnlage* window) {
    QMdiSubWindow* sub = SubWindowOf(window);
    if (!sub)
        return;
    if (sub->isMinimized())
        sub->showNormal();
    mdiArea_->setActiveSubWindow(sub);
    window->Plan()->setFocus(Qt::OtherFocusReason);
    UpdateMenuBar();
}

void FMain::OpenHandedOver(const QStringList& files) {
    if (isMinimized())
        showNormal();
    raise();
    activateWindow();
    pending_ << files;
    OpenPending();
}

void FMain::OpenPending() {
    while (!loading_ && !pending_.isEmpty())
        OpenFile(FromQt(pending_.takeFirst()));
}

FAnlage* FMain::OpenFile(const std::string& file) {
    if (file.empty())
        return nullptr;
    std::string path = NormalPath(file);
    if (FAnlage* open = FindAnlage(path)) {
        AddRecentFile(path);
        Activate(open);
        return open;
    }
    // One load at a time: the load lets events run, and a second one would share its parse log.
    if (loading_)
        return nullptr;
    loading_ = true;
    UI().SetWaitCursor(true);
    auto* window = new FAnlage(*this, ui_);
    QMdiSubWindow* sub = mdiArea_->addSubWindow(window);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    // The window menu's close command also listens to Ctrl+W on some desktops, which would make
    // Datei > Schließen's Ctrl+W ambiguous, and then neither works; it keeps Ctrl+F4.
    if (QMenu* system = sub->systemMenu())
        for (QAction* action : system->actions()) {
            QList<QKeySequence> keys = action->shortcuts();
            if (keys.removeAll(QKeySequence(Qt::CTRL | Qt::Key_W)) > 0)
                action->setShortcuts(keys);
        }
    sub->show();
    CWindowArranger(*mdiArea_).PlaceNew(*sub, static_cast<int>(anlagen_.size()));
    anlagen_.push_back(window);
    if (window->Load(path)) {
        AddRecentFile(path);
        Activate(window);
    } else {
        RemoveAnlage(window);
        delete sub;
        window = nullptr;
    }
    UI().SetWaitCursor(false);
    loading_ = false;
    // Files handed over during the load wait for it.
    if (!pending_.isEmpty())
        QTimer::singleShot(0, this, &FMain::OpenPending);
    return window;
}

bool FMain::AnlageInUse(const std::string& path, const FAnlage* except) const {
    for (const FAnlage* window : anlagen_) {
        if (window == except || window->FileName() != path)
            continue;
        ErrorBox(FormatMessage("Sorry, aber die Anlage%n%1%nwird gerade von %2 bearbeitet!%m"
                               "Sie kann deshalb nicht mit >Anlage speichern unter...< überschrieben werden!",
                               path, kProgramName));
        return true;
    }
    return false;
}

void FMain::AddRecentFile(const std::string& path) {
    mru_->Add(path);
    UpdateMenuMruList();
}

// Every document window is asked first; one that stays open keeps the program running.
void FMain::closeEvent(QCloseEvent* event) {
    if (loading_) {
        event->ignore();
        return;
    }
    const std::vector<FAnlage*> windows = anlagen_;
    for (const FAnlage* window : windows) {
        QMdiSubWindow* sub = SubWindowOf(window);
        if (sub && !sub->close()) {
            event->ignore();
            return;
        }
    }
    // A session that ends with the system does not move the window for the next start.
    if (!qGuiApp->isSavingSession())
        SaveWindowState();
    for (FParseLogWindow* log : findChildren<FParseLogWindow*>())
        log->close();
    event->accept();
}

} // namespace kavrin
