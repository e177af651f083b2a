#pragma once

#include <QObject>
#include <QString>

class QAction;
class QKeySequence;
class QComboBox;
class QMenu;
class QToolBar;
class QWidget;

namespace kavrin {

// The commands of the plan window: the toolbar (buttons told apart by their keys "Open",
// "Save", "SaveAs", "ZoomIn", "ZoomOut", "World", "Content", "Names", "Signals",
// "HeightFilter", "MousePointer", "MouseMover"; the key is the action's object name and data),
// the zoom box cbZoom inside it, the menu "&Anlage" (mnuAnlWorld, mnuAnlContent, mnuAnlNames,
// mnuAnlSignals, mnuAnlHeightFilter) and the plan's popup (popAnlZoomIn, popAnlZoomOut,
// popAnlContent). It builds them and keeps buttons and menu items of the same command in step;
// the window connects the triggers.
class CPlanCommands : public QObject {
    Q_OBJECT
public:
    explicit CPlanCommands(QWidget* window);

    QToolBar* ToolBar() const { return toolBar_; }
    QComboBox* ZoomBox() const { return cbZoom_; }
    QMenu* AnlageMenu() const { return mnuAnl_; }
    QMenu* Popup() const { return popAnl_; }
    // A toolbar button by its key, or a menu item by its object name.
    QAction* Button(const char* key) const;
    QAction* MenuItem(const char* name) const;

    // ZoomIn while the selected step is not the last, ZoomOut while it is not the first.
    void EnableZoom(bool canZoomIn, bool canZoomOut, bool layoutShown);
    void ShowNames(bool on);
    void ShowSignals(bool on);
    void ShowHeightFilterActive(bool on);

private:
    QAction* AddButton(const char* key, const char* tip, bool checkable = false);
    QAction* AddMenuItem(QMenu* menu, const char* name, const char* text, bool checkable = false);
    void CreateToolBar();
    void CreateMenus();
    static void SetChecked(QAction* action, bool on);

    void AddShortcut(QAction* action, const QKeySequence& keys);
    QWidget& window_;
    QToolBar* toolBar_ = nullptr;
    QComboBox* cbZoom_ = nullptr;
    QMenu* mnuAnl_ = nullptr;
    QMenu* popAnl_ = nullptr;
};

} // namespace kavrin
