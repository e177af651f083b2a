#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QMenu;
class QMdiSubWindow;

namespace kavrin {

class CAnlage;
class CQtUserInterface;
class FMain;

// The document window of one open layout: it loads the layout, shows its name, version and
// state, saves it, and asks before a changed layout is closed. Controls: picPlan, lblVersion,
// lblStatus; menus mnuFileSave, mnuFileSaveAs, mnuFileClose and the recent-file list.
class FAnlage : public QWidget {
    Q_OBJECT
public:
    FAnlage(FMain& main, CQtUserInterface& ui, QWidget* parent = nullptr);
    ~FAnlage() override;

    // Loads the layout; false (after telling the user) when it could not be loaded.
    bool Load(const std::string& path);
    // Saves under the current name; false when it failed (the layout stays changed).
    bool Save();
    // Asks for a new name (save dialog) and saves under it.
    bool SaveAs();
    // Saves under `path`, unless another window has that layout open.
    bool SaveAs(const std::string& path);

    // The close question; true when the window may close.
    bool QueryUnload();

    const std::string& FileName() const;
    CAnlage& Anlage() { return *anlage_; }
    const CAnlage& Anlage() const { return *anlage_; }
    bool Changed() const;
    // Every editing operation marks the layout as changed; saving clears it.
    void SetChanged(bool changed);
    bool Loading() const { return loading_; }

    // The menus this window shows in the main window's menu bar while it is active.
    std::vector<QMenu*> Menus() const { return {mnuFile_}; }
    QMenu* FileMenu() const { return mnuFile_; }
    QMdiSubWindow* SubWindow() const;

    void RepaintPlan();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void CreateMenus();
    void UpdateCaption();

    FMain& main_;
    CQtUserInterface& ui_;
    std::unique_ptr<CAnlage> anlage_;
    std::string requestedPath_;
    QWidget* picPlan_;
    QLabel* lblVersion_;
    QLabel* lblStatus_;
    QMenu* mnuFile_ = nullptr;
    bool loading_ = false;
};

} // namespace kavrin
