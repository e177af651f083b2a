#pragma once

#include <QMainWindow>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

class QMdiArea;
class QMdiSubWindow;
class QLabel;
class QMenu;

namespace kavrin {

class CMru;
class COptions;
class CQtUserInterface;
class FAnlage;

// The main window: an MDI frame with one document window (FAnlage) per open layout, the
// recent-file list, the options and the help files.
class FMain : public QMainWindow {
    Q_OBJECT
public:
    explicit FMain(CQtUserInterface& ui, QWidget* parent = nullptr);
    ~FMain() override;

    // Removes a closing document window from Anlagen (nothing when it is not there).
    void RemoveAnlage(const FAnlage* window);
    // 0 cascade, 1 tile horizontally, 2 tile vertically, 3 arrange icons, 4 minimise all.
    void ArrangeChildren(int mode);
    void OptionPlan();
    void RepaintAnlagen();
    void ProgInfo();
    // The open document windows in the order they were opened.
    const std::vector<FAnlage*>& Anlagen() const { return anlagen_; }
    void OptionSettings();
    // Opens every layout the command line names.
    void ProcessParams(const std::string& commandLine);
    // Rebuilds the recent-file menu of this window and of every document window.
    void UpdateMenuMruList();
    void OpenMru(int index);
    // The short guide as PDF with the system's viewer; without one, its HTML inside Kavrin.
    void ShowAnleitung();
    // The change list in a read-only window of Kavrin's own.
    void ShowWasIsNeu();
    // Opens a file that ships next to the program with the program the system has for it.
    void ShowFile(const std::string& name);

    // Runs the open dialog and opens the chosen layout (menu mnuFileOpen).
    void FileOpen();
    // Opens a layout in a new document window, with the wait cursor, and brings it to the front
    // with the focus. A layout that is open already is only brought to the front. A failed load
    // leaves no window behind; a loaded layout goes to the top of the recent-file list.
    FAnlage* OpenFile(const std::string& path);
    // The document window that has the layout open, or none.
    FAnlage* FindAnlage(const std::string& path) const;
    // Files a second start handed over: opened (or brought to the front), and this window too.
    void OpenHandedOver(const QStringList& files);
    // "Kavrin - Name.anl3", with "*" while the active layout has unsaved changes.
    void UpdateTitle();
    // The title as set, with the "[*]" placeholder for the changed mark.
    QString MainTitle() const;
    // The title as the user sees it ("Kavrin - Demo.anl3*").
    QString ShownTitle() const;
    // Whether another document window has the layout open; tells the user so (true).
    bool AnlageInUse(const std::string& path, const FAnlage* except) const;
    // A layout was saved under a new name.
    void AddRecentFile(const std::string& path);

    CMru& Mru() { return *mru_; }
    COptions& Options() { return *options_; }
    QMdiArea* MdiArea() const { return mdiArea_; }
    FAnlage* ActiveAnlage() const;
    // Shows in the status bar which installation of the simulator Kavrin works with.
    void ShowInstallation();
    bool Loading() const { return loading_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void LoadWindowState();
    void SaveWindowState() const;
    void CreateActions();
    void CreateMenus();
    void CreateToolBar();
    void FillMruMenu(QMenu* menu);
    void FillWindowList();
    void UpdateMenuBar();
    QMdiSubWindow* SubWindowOf(const FAnlage* window) const;
    void Activate(FAnlage* window);
    void OpenPending();

    CQtUserInterface& ui_;
    QMdiArea* mdiArea_ = nullptr;
    std::vector<FAnlage*> anlagen_;
    std::unique_ptr<CMru> mru_;
    std::unique_ptr<COptions> options_;
    QMenu* mnuFile_ = nullptr;
    QMenu* mnuOption_ = nullptr;
    QMenu* mnuWindow_ = nullptr;
    QMenu* mnuHelp_ = nullptr;
    QAction* windowListSep_ = nullptr;
    QAction* tbSave_ = nullptr;
    QLabel* lblInstallation_ = nullptr;
    bool loading_ = false;
    // Files that arrived while a layout was loading; opened when it is done.
    QStringList pending_;
};

} // namespace kavrin
