#include "app/CPlanCommands.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QMenu>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <QToolBar>
#include <QWidget>

#include "app/modQtText.h"
#include "app/modToolIcons.h"
#include "core/modTools.h"

namespace kavrin {

CPlanCommands::CPlanCommands(QWidget* window) : QObject(window), window_(*window) {
    CreateToolBar();
    CreateMenus();
    EnableZoom(false, false, false);
}

QAction* CPlanCommands::AddButton(const char* key, const char* tip, bool checkable) {
    const QString name = QLatin1String(key);
    QIcon icon = PlanToolIcon(name);
    if (name == QLatin1String("Open"))
        icon = window_.style()->standardIcon(QStyle::SP_DialogOpenButton);
    else if (name == QLatin1String("Save"))
        icon = window_.style()->standardIcon(QStyle::SP_DialogSaveButton);
    QAction* action = toolBar_->addAction(icon, ToQt(FormatMessage(tip)));
    action->setObjectName(name);
    action->setData(name);
    action->setCheckable(checkable);
    return action;
}

// Several layouts may be open; a key acts on the document window that has the focus.
void CPlanCommands::AddShortcut(QAction* action, const QKeySequence& keys) {
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setToolTip(action->text() + QStringLiteral(" (") + keys.toString(QKeySequence::NativeText) +
                       QLatin1Char(')'));
    window_.addAction(action);
}

void CPlanCommands::CreateToolBar() {
    toolBar_ = new QToolBar(&window_);
    toolBar_->setObjectName(QStringLiteral("tbAnlage"));
    toolBar_->setIconSize(QSize(24, 24));
    AddButton("Open", "Anlage öffnen");
    AddButton("Save", "Anlage speichern");
    AddButton("SaveAs", "Anlage speichern unter");
    toolBar_->addSeparator();
    AddShortcut(AddButton("ZoomIn", "Vergrößern"), QKeySequence::ZoomIn);
    // The entries are the zoom steps; between them the box shows the factor, and a factor may
    // be typed.
    cbZoom_ = new QComboBox(toolBar_);
    cbZoom_->setObjectName(QStringLiteral("cbZoom"));
    cbZoom_->setToolTip(ToQt(FormatMessage("Zoomfaktor")));
    cbZoom_->setEditable(true);
    cbZoom_->setInsertPolicy(QComboBox::NoInsert);
    cbZoom_->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[0-9]{0,6}([.,][0-9]{0,3})?")), cbZoom_));
    cbZoom_->setMinimumContentsLength(6);
    cbZoom_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    toolBar_->addWidget(cbZoom_);
    AddShortcut(AddButton("ZoomOut", "Verkleinern"), QKeySequence::ZoomOut);
    AddShortcut(AddButton("World", "Gesamtansicht"), QKeySequence(Qt::CTRL | Qt::Key_0));
    AddShortcut(AddButton("Content", "Auf Inhalt zoomen"), QKeySequence(Qt::CTRL | Qt::Key_9));
    toolBar_->addSeparator();
    AddButton("Names", "Namen anzeigen", true);
    AddButton("Signals", "Signale anzeigen", true);
    AddButton("HeightFilter", "Höhenfilter", true);
    toolBar_->addSeparator();
    auto* tools = new QActionGroup(this);
    tools->setExclusive(true);
    tools->addAction(AddButton("MousePointer", "Objekte auswählen", true))->setChecked(true);
    tools->addAction(AddButton("MouseMover", "Plan verschieben", true));
}

QAction* CPlanCommands::AddMenuItem(QMenu* menu, const char* name, const char* text, bool checkable) {
    QAction* action = menu->addAction(ToQt(FormatMessage(text)));
    action->setObjectName(QLatin1String(name));
    action->setCheckable(checkable);
    return action;
}

void CPlanCommands::CreateMenus() {
    mnuAnl_ = new QMenu(ToQt(FormatMessage("&Anlage")), &window_);
    mnuAnl_->setObjectName(QStringLiteral("mnuAnl"));
    AddMenuItem(mnuAnl_, "mnuAnlWorld", "&Gesamtansicht")->setIcon(PlanToolIcon(QStringLiteral("World")));
    QAction* content = AddMenuItem(mnuAnl_, "mnuAnlContent", "Auf &Inhalt zoomen");
    content->setIcon(PlanToolIcon(QStringLiteral("Content")));
    // The toolbar button holds the shortcut; the menu only shows it.
    content->setText(content->text() + QLatin1Char('\t') +
                     QKeySequence(Qt::CTRL | Qt::Key_9).toString(QKeySequence::NativeText));
    mnuAnl_->addSeparator();
    AddMenuItem(mnuAnl_, "mnuAnlNames", "&Namen anzeigen", true);
    AddMenuItem(mnuAnl_, "mnuAnlSignals", "&Signale anzeigen", true);
    mnuAnl_->addSeparator();
    AddMenuItem(mnuAnl_, "mnuAnlHeightFilter", "&Höhenfilter ...")
        ->setIcon(PlanToolIcon(QStringLiteral("HeightFilter")));

    popAnl_ = new QMenu(&window_);
    popAnl_->setObjectName(QStringLiteral("popAnl"));
    AddMenuItem(popAnl_, "popAnlZoomIn", "Ver&größern")->setIcon(PlanToolIcon(QStringLiteral("ZoomIn")));
    AddMenuItem(popAnl_, "popAnlZoomOut", "Ver&kleinern")->setIcon(PlanToolIcon(QStringLiteral("ZoomOut")));
    AddMenuItem(popAnl_, "popAnlContent", "Auf &Inhalt zoomen")
        ->setIcon(PlanToolIcon(QStringLiteral("Content")));
}

QAction* CPlanCommands::Button(const char* key) const {
    for (QAction* action : toolBar_->actions())
        if (action->data().toString() == QLatin1String(key))
            return action;
    return nullptr;
}

QAction* CPlanCommands::MenuItem(const char* name) const {
    for (const QMenu* menu : {mnuAnl_, popAnl_})
        for (QAction* action : menu->actions())
            if (action->objectName() == QLatin1String(name))
                return action;
    return nullptr;
}

void CPlanCommands::EnableZoom(bool canZoomIn, bool canZoomOut, bool layoutShown) {
    Button("ZoomIn")->setEnabled(canZoomIn);
    MenuItem("popAnlZoomIn")->setEnabled(canZoomIn);
    Button("ZoomOut")->setEnabled(canZoomOut);
    MenuItem("popAnlZoomOut")->setEnabled(canZoomOut);
    for (const char* key : {"World", "Content"})
        Button(key)->setEnabled(layoutShown);
    for (const char* name : {"mnuAnlWorld", "mnuAnlContent", "popAnlContent"})
        MenuItem(name)->setEnabled(layoutShown);
    cbZoom_->setEnabled(layoutShown);
}

void CPlanCommands::SetChecked(QAction* action, bool on) {
    if (action->isChecked() != on)
        action->setChecked(on);
}

void CPlanCommands::ShowNames(bool on) {
    SetChecked(Button("Names"), on);
    SetChecked(MenuItem("mnuAnlNames"), on);
}

void CPlanCommands::ShowSignals(bool on) {
    SetChecked(Button("Signals"), on);
    SetChecked(MenuItem("mnuAnlSignals"), on);
}

void CPlanCommands::ShowHeightFilterActive(bool on) {
    SetChecked(Button("HeightFilter"), on);
}

} // namespace kavrin
