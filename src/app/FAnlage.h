#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "plan/CObjectSearch.h"
#include "plan/CPlanView.h"
#include "plan/CSelection.h"
#include "plan/CTerrainBitmaps.h"

class QLabel;
class QMenu;
class QMdiSubWindow;
class QScrollBar;

namespace kavrin {

class CAnlage;
class CEditHistory;
class CPlanCommands;
class CDeleteCommands;
class CPlanEditor;
class CPlanNavigator;
class CPlanWidget;
class CQtUserInterface;
class FMain;
class FSearch;

// The document window of one open layout: it loads the layout, draws its plan, shows its name,
// version and state, saves it, and asks before a changed layout is closed; its editor selects
// and edits (Bearbeiten menu, pointer tool, dialogs, undo). Controls: the toolbar with cbZoom,
// picPlan with scrHor and scrVert, lblVersion, lblCoord, lblBitmap (the colour map that cannot be
// shown), lblStatus and PaintTimer; menus mnuFile (mnuFileSave, mnuFileSaveAs, mnuFileClose,
// recent files) and mnuAnl; the plan's popup popAnl.
class FAnlage : public QWidget {
    Q_OBJECT
public:
    FAnlage(FMain& main, CQtUserInterface& ui, QWidget* parent = nullptr);
    ~FAnlage() override;

    // Loads the layout and draws its plan; false (after telling the user) when it could not be
    // loaded.
    bool Load(const std::string& path);
    // Saves under the current name; false when it failed (the layout stays changed).
    bool Save();
    // Asks for a new name (save dialog) and saves under it.
    bool SaveAs();
    // Saves under `path`, unless another window has that layout open or the user does not want
    // an existing file replaced; in another folder the terrain bitmaps go along.
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
    std::vector<QMenu*> Menus() const;
    QMenu* FileMenu() const { return mnuFile_; }
    QMenu* EditMenu() const { return mnuEdit_; }
    QMdiSubWindow* SubWindow() const;

    // The plan: how the layout maps onto picPlan, and what the terrain's bitmaps gave.
    const CPlanView& View() const { return view_; }
    const CTerrainBitmaps& TerrainBitmaps() const { return bitmaps_; }
    CPlanWidget* Plan() const { return picPlan_; }
    CPlanCommands& Commands() const { return *commands_; }
    // What the user has selected on the plan, the layout's undo history, and the editing
    // commands, mouse tools and dialogs that work with them.
    CSelection& Selection() { return selection_; }
    CEditHistory& History() { return *history_; }
    CPlanEditor& Editor() const { return *editor_; }

    // Draws the plan anew (after a change of the view options, for example).
    void RepaintPlan();
    // Gives the keyboard back to the plan after a dialog, so its shortcuts answer at once.
    void ReturnFocusToPlan();
    // The zoom commands: the next or previous entry of cbZoom, or back to the whole layout.
    void ZoomIn();
    void ZoomOut();
    void World();
    // Shows all of the layout's content ("Auf Inhalt zoomen"), as the window opens; it stays
    // fitted through resizes until the user moves or zooms the view.
    void ZoomToContent();
    // Shows the selected objects as large as the window allows ("Auf Auswahl zoomen").
    void ZoomToSelection();
    void SetWithNames(bool on);
    void SetWithSignals(bool on);
    // Opens the height filter dialog and applies what the user confirmed.
    void EditHeightFilter();

    // Datei > "Plan exportieren…": asks what to export and where, then writes the picture.
    void ExportPlanDialog();
    // Draws the current view or the whole layout `width` pixels wide into a PNG or, for a name
    // ending in .svg, an SVG file; false (after telling the user) when that failed.
    bool ExportPlan(bool wholeLayout, int width, const std::string& path);
    // Bearbeiten > "Suchen…" (Ctrl+F): the search window of this layout.
    FSearch* ShowSearch();
    // Anlage > "Inventar…".
    void ShowInventory();
    // Centres the plan on a found object and zooms in to it; selects it when the plan may.
    void JumpTo(const CObjectSearch::Hit& hit);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void CreateMenus();
    void CreatePlan();
    QWidget* CreateStatusStrip();
    void ConnectCommands();
    void UpdateCaption();
    void CopyTerrainBitmaps(const std::string& fromFolder, const std::string& toFolder);

    void InitPlan();
    void CheckTerrainBitmaps();
    // Centres the plan on a world point at a zoom step that shows about 80 m around it.
    void ShowPlace(double x, double y);
    void ShowHeightFilterStatus();

    FMain& main_;
    CQtUserInterface& ui_;
    std::unique_ptr<CAnlage> anlage_;
    std::unique_ptr<CEditHistory> history_;
    CSelection selection_;
    CPlanView view_;
    CTerrainBitmaps bitmaps_;
    CPlanCommands* commands_ = nullptr;
    CPlanEditor* editor_ = nullptr;
    CDeleteCommands* deleter_ = nullptr;
    CPlanWidget* picPlan_ = nullptr;
    CPlanNavigator* navigator_ = nullptr;
    QScrollBar* scrHor_ = nullptr;
    QScrollBar* scrVert_ = nullptr;
    QLabel* lblVersion_ = nullptr;
    QLabel* lblCoord_ = nullptr;
    QLabel* lblStatus_ = nullptr;
    QLabel* lblBitmap_ = nullptr;
    QMenu* mnuFile_ = nullptr;
    QMenu* mnuEdit_ = nullptr;
    FSearch* search_ = nullptr;
    bool loading_ = false;
};

} // namespace kavrin
