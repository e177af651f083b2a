#include "app/FAnlage.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/CAppIcon.h"
#include "app/CDeleteCommands.h"
#include "app/COptions.h"
#include "app/CPlanCommands.h"
#include "app/CPlanEditor.h"
#include "app/CPlanNavigator.h"
#include "app/CPlanWidget.h"
#include "app/CQtUserInterface.h"
#include "app/FHeightFilter.h"
#include "app/FInventory.h"
#include "app/FMain.h"
#include "app/FPlanExport.h"
#include "app/FSearch.h"
#include "app/modDialogs.h"
#include "app/modPlanExport.h"
#include "app/modPlanTexts.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"
#include "edit/CEditHistory.h"
#include "nodes/CNodeLandschaft.h"
#include "nodes/LayoutLookup.h"
#include "plan/CContentBox.h"
#include "plan/CPlanPainter.h"
#include "plan/CTerrainFiles.h"

namespace kavrin {

FAnlage::FAnlage(FMain& main, CQtUserInterface& ui, QWidget* parent)
    : QWidget(parent), main_(main), ui_(ui), anlage_(std::make_unique<CAnlage>()),
      history_(std::make_unique<CEditHistory>(*anlage_)) {
    setObjectName(QStringLiteral("FAnlage"));
    setWindowIcon(CAppIcon::Icon());
    setMinimumSize(320, 200);

    commands_ = new CPlanCommands(this);
    CreatePlan();
    editor_ = new CPlanEditor(*this, selection_, *history_, main_.Options());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(commands_->ToolBar());
    auto* plan = new QGridLayout;
    plan->setSpacing(0);
    plan->addWidget(picPlan_, 0, 0);
    plan->addWidget(scrVert_, 0, 1);
    plan->addWidget(scrHor_, 1, 0);
    layout->addLayout(plan, 1);
    layout->addWidget(CreateStatusStrip());

    CreateMenus();
    editor_->CreateCommands(mnuEdit_, commands_->Popup(), commands_->ToolBar());
    deleter_ = new CDeleteCommands(*this, selection_, *history_, *editor_);
    deleter_->CreateCommands(mnuEdit_, commands_->AnlageMenu(), commands_->Popup());
    ConnectCommands();
}

void FAnlage::CreatePlan() {
    picPlan_ = new CPlanWidget(*anlage_, view_, main_.Options(), this);
    picPlan_->setContextMenuPolicy(Qt::CustomContextMenu);
    // The window's focus is the plan's, so that the keys scroll as soon as it is active.
    setFocusProxy(picPlan_);
    scrHor_ = new QScrollBar(Qt::Horizontal, this);
    scrHor_->setObjectName(QStringLiteral("scrHor"));
    scrVert_ = new QScrollBar(Qt::Vertical, this);
    scrVert_->setObjectName(QStringLiteral("scrVert"));
    navigator_ = new CPlanNavigator(*anlage_, view_, *picPlan_, *commands_, *scrHor_, *scrVert_, this);
}

QWidget* FAnlage::CreateStatusStrip() {
    auto* strip = new QWidget(this);
    strip->setObjectName(QStringLiteral("fraStatus"));
    lblVersion_ = new QLabel(strip);
    lblVersion_->setObjectName(QStringLiteral("lblVersion"));
    lblCoord_ = new QLabel(strip);
    lblCoord_->setObjectName(QStringLiteral("lblCoord"));
    lblCoord_->setAlignment(Qt::AlignCenter);
    lblStatus_ = new QLabel(strip);
    lblStatus_->setObjectName(QStringLiteral("lblStatus"));
    lblStatus_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblBitmap_ = new QLabel(strip);
    lblBitmap_->setObjectName(QStringLiteral("lblBitmap"));
    lblBitmap_->setStyleSheet(QStringLiteral("color: #8a3b00;"));
    auto* stripLayout = new QHBoxLayout(strip);
    stripLayout->setContentsMargins(6, 2, 6, 2);
    stripLayout->addWidget(lblVersion_, 1);
    stripLayout->addWidget(lblCoord_, 2);
    stripLayout->addWidget(editor_->SelectionLabel(), 2);
    stripLayout->addWidget(lblBitmap_);
    stripLayout->addSpacing(12);
    stripLayout->addWidget(lblStatus_, 1);
    return strip;
}

void FAnlage::ConnectCommands() {
    const CPlanCommands& commands = *commands_;
    auto onTrigger = [this](QAction* action, auto handler) {
        connect(action, &QAction::triggered, this, handler);
    };
    onTrigger(commands.Button("Open"), [this] { main_.FileOpen(); });
    onTrigger(commands.Button("Save"), [this] { Save(); });
    onTrigger(commands.Button("SaveAs"), [this] { SaveAs(); });
    onTrigger(commands.Button("ZoomIn"), [this] { ZoomIn(); });
    onTrigger(commands.MenuItem("popAnlZoomIn"), [this] { ZoomIn(); });
    onTrigger(commands.Button("ZoomOut"), [this] { ZoomOut(); });
    onTrigger(commands.MenuItem("popAnlZoomOut"), [this] { ZoomOut(); });
    onTrigger(commands.Button("World"), [this] { World(); });
    onTrigger(commands.MenuItem("mnuAnlWorld"), [this] { World(); });
    onTrigger(commands.Button("Content"), [this] { ZoomToContent(); });
    onTrigger(commands.MenuItem("mnuAnlContent"), [this] { ZoomToContent(); });
    onTrigger(commands.MenuItem("popAnlContent"), [this] { ZoomToContent(); });
    onTrigger(commands.Button("Names"), [this](bool on) { SetWithNames(on); });
    onTrigger(commands.MenuItem("mnuAnlNames"), [this](bool on) { SetWithNames(on); });
    onTrigger(commands.Button("Signals"), [this](bool on) { SetWithSignals(on); });
    onTrigger(commands.MenuItem("mnuAnlSignals"), [this](bool on) { SetWithSignals(on); });
    onTrigger(commands.Button("HeightFilter"), [this] { EditHeightFilter(); });
    onTrigger(commands.MenuItem("mnuAnlHeightFilter"), [this] { EditHeightFilter(); });
    onTrigger(commands.Button("MousePointer"), [this] { picPlan_->SetTool(CPlanWidget::Tool::Pointer); });
    onTrigger(commands.Button("MouseMover"), [this] { picPlan_->SetTool(CPlanWidget::Tool::Mover); });

    connect(picPlan_, &CPlanWidget::MouseAt, this,
            [this](double x, double y) { lblCoord_->setText(CoordinateText(x, y)); });
    connect(picPlan_, &CPlanWidget::MouseLeft, lblCoord_, &QLabel::clear);
    connect(picPlan_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { commands_->Popup()->popup(picPlan_->mapToGlobal(at)); });
}

FAnlage::~FAnlage() {
    main_.RemoveAnlage(this);
}

std::vector<QMenu*> FAnlage::Menus() const {
    return {mnuFile_, mnuEdit_, commands_->AnlageMenu()};
}

void FAnlage::CreateMenus() {
    mnuFile_ = new QMenu(ToQt(FormatMessage("&Datei")), this);
    mnuFile_->setObjectName(QStringLiteral("mnuFile"));
    mnuFile_->addAction(main_.findChild<QAction*>(QStringLiteral("mnuFileOpen")));

    QAction* save = mnuFile_->addAction(ToQt(FormatMessage("&Speichern")));
    save->setObjectName(QStringLiteral("mnuFileSave"));
    save->setShortcut(QKeySequence::Save);
    save->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    connect(save, &QAction::triggered, this, [this] { Save(); });
    QAction* saveAs = mnuFile_->addAction(ToQt(FormatMessage("Speichern &unter ...")));
    saveAs->setObjectName(QStringLiteral("mnuFileSaveAs"));
    saveAs->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    connect(saveAs, &QAction::triggered, this, [this] { SaveAs(); });
    QAction* close = mnuFile_->addAction(ToQt(FormatMessage("S&chließen")));
    close->setObjectName(QStringLiteral("mnuFileClose"));
    close->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    connect(close, &QAction::triggered, this, [this] {
        if (QMdiSubWindow* sub = SubWindow())
            sub->close();
    });

    mnuFile_->addSeparator();
    QAction* exportPlan = mnuFile_->addAction(ToQt(FormatMessage("Plan e&xportieren…")));
    exportPlan->setObjectName(QStringLiteral("mnuFileExport"));
    connect(exportPlan, &QAction::triggered, this, &FAnlage::ExportPlanDialog);

    mnuFile_->addSeparator()->setObjectName(QStringLiteral("mnuFileMruSep"));
    mnuFile_->addSeparator();
    mnuFile_->addAction(main_.findChild<QAction*>(QStringLiteral("mnuFileQuit")));

    mnuEdit_ = new QMenu(ToQt(FormatMessage("&Bearbeiten")), this);
    mnuEdit_->setObjectName(QStringLiteral("mnuEdit"));
    QAction* find = mnuEdit_->addAction(ToQt(FormatMessage("&Suchen…")));
    find->setObjectName(QStringLiteral("mnuEditFind"));
    find->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
    connect(find, &QAction::triggered, this, &FAnlage::ShowSearch);

    // The inventory belongs to the layout's own menu, after the view commands.
    QMenu* anlage = commands_->AnlageMenu();
    anlage->addSeparator();
    QAction* inventory = anlage->addAction(ToQt(FormatMessage("&Inventar…")));
    inventory->setObjectName(QStringLiteral("mnuAnlInventory"));
    connect(inventory, &QAction::triggered, this, &FAnlage::ShowInventory);
    QAction* renumber = anlage->addAction(ToQt(FormatMessage("&Key-IDs neu nummerieren…")));
    renumber->setObjectName(QStringLiteral("mnuAnlRenumKeyId"));
    connect(renumber, &QAction::triggered, editor_, &CPlanEditor::RenumberKeyIds);
}

QMdiSubWindow* FAnlage::SubWindow() const {
    return qobject_cast<QMdiSubWindow*>(parentWidget());
}

bool FAnlage::Load(const std::string& path) {
    loading_ = true;
    setWindowTitle(QFileInfo(QString::fromStdString(path)).fileName() + QLatin1String("[*]"));
    ui_.SetStatusLabel(lblStatus_);
    ui_.BeginLoad(path);
    bool ok = anlage_->Load(path);
    // The terrain's bitmaps are checked inside the load, so that what they lack stands in the
    // parse log with the other hints.
    if (ok) {
        CheckTerrainBitmaps();
        ui_.ParseLog().FinalState();
    }
    ui_.EndLoad();
    ui_.SetStatusLabel(nullptr);
    loading_ = false;
    lblStatus_->clear();
    if (!ok)
        return false;
    lblVersion_->setText(ToQt(FormatMessage("Version %1", anlage_->Version().Text())));
    editor_->LayoutLoaded();
    UpdateCaption();
    InitPlan();
    return true;
}

bool FAnlage::Save() {
    if (FileName().empty())
        return SaveAs();
    bool ok = anlage_->Save(FileName());
    if (ok)
        editor_->LayoutSaved();
    UpdateCaption();
    return ok;
}

bool FAnlage::SaveAs() {
    QString folder = QFileInfo(QString::fromStdString(FileName())).absolutePath();
    // The dialog does not ask about replacing: SaveAs asks, after the in-use test.
    std::string path =
        SaveFileDialog(this, FileName().empty() ? std::string() : FromQt(folder), ".anl3", false);
    if (path.empty())
        return false;
    return SaveAs(path);
}

namespace {
std::string FolderOf(const std::string& path) {
    return FromQt(QFileInfo(QString::fromStdString(path)).absolutePath());
}

bool MayReplace(const std::string& path) {
    return Ask(FormatMessage("Die Datei%n%1%ngibt es schon.%mMöchten Sie sie ersetzen?", path));
}
} // namespace

// The in-use refusal comes first: there is no point asking whether to replace a layout that
// may not be replaced anyway.
bool FAnlage::SaveAs(const std::string& file) {
    std::string path = NormalPath(file);
    if (path.empty() || main_.AnlageInUse(path, this))
        return false;
    if (path != FileName() && FileExists(path) && !MayReplace(path))
        return false;
    const std::string oldFolder = FileName().empty() ? std::string() : FolderOf(FileName());
    bool ok = anlage_->Save(path);
    if (ok)
        editor_->LayoutSaved();
    UpdateCaption();
    if (ok) {
        main_.AddRecentFile(path);
        if (!oldFolder.empty())
            CopyTerrainBitmaps(oldFolder, FolderOf(path));
    }
    return ok;
}

// A layout saved into another folder takes its terrain bitmaps along, so that it opens there
// with its colour map. Each file that is there already is replaced only when the user agrees.
void FAnlage::CopyTerrainBitmaps(const std::string& fromFolder, const std::string& toFolder) {
    const CNodeLandschaft* terrain = FindTerrain(*anlage_);
    if (!terrain)
        return;
    for (const CTerrainFiles::Copy& copy : CTerrainFiles::ToCopy(*terrain, fromFolder, toFolder)) {
        if (FileExists(copy.target) && !MayReplace(copy.target))
            continue;
        std::string error;
        if (!CTerrainFiles::CopyFile(copy, error))
            ErrorBox(error);
    }
}

// Yes keeps the window open, so that the user saves through the menu; No closes it without
// saving. Closing never saves by itself.
bool FAnlage::QueryUnload() {
    if (!Changed())
        return true;
    return !Ask(FormatMessage("Änderungen an der Anlage%n%1%n", FileName()) +
                FormatMessage("sind noch nicht gespeichert worden!%m") +
                FormatMessage("Haben Sie vor, Ihre Änderungen zu speichern?"));
}

const std::string& FAnlage::FileName() const {
    return anlage_->FilePath();
}

bool FAnlage::Changed() const {
    return anlage_->Changed();
}

void FAnlage::SetChanged(bool changed) {
    anlage_->SetChanged(changed);
    UpdateCaption();
}

void FAnlage::UpdateCaption() {
    QFileInfo file(QString::fromStdString(FileName()));
    setWindowTitle(file.fileName() + QLatin1String("[*]"));
    setWindowModified(Changed());
    main_.UpdateTitle();
}

void FAnlage::RepaintPlan() {
    picPlan_->Invalidate();
}

void FAnlage::closeEvent(QCloseEvent* event) {
    if (loading_ || !QueryUnload()) {
        event->ignore();
        return;
    }
    // Releasing a large tree takes a moment; the window says what it is doing.
    lblStatus_->setText(ToQt(FormatMessage("wird abgebaut ...")));
    lblStatus_->repaint();
    navigator_->CancelRescale();
    editor_->CloseDialogs();
    anlage_->Clear();
    main_.RemoveAnlage(this);
    event->accept();
}

// The plan after a load: extent and zoom steps from the terrain, the commands and the status
// brought in line, and the first drawing, fitted to the layout's content.
void FAnlage::InitPlan() {
    CPlanPainter::InitView(view_, *anlage_);
    navigator_->FillZoomBox();
    ShowHeightFilterStatus();
    commands_->ShowNames(picPlan_->Painter().WithNames);
    commands_->ShowSignals(picPlan_->Painter().WithSignals);
    commands_->ShowHeightFilterActive(anlage_->HoehenFilter().Active());
    ZoomToContent();
    // The keys move the plan from the start.
    picPlan_->setFocus();
}

void FAnlage::CheckTerrainBitmaps() {
    const CNodeLandschaft* terrain = FindTerrain(*anlage_);
    if (!terrain)
        return;
    bitmaps_.Check(*terrain, FromQt(QFileInfo(QString::fromStdString(FileName())).absolutePath()));
    const CPlanImage& background = bitmaps_.Background();
    picPlan_->Painter().Background = background.Empty() ? nullptr : &background;
    // The status line says when the colour map the layout names cannot be shown.
    lblBitmap_->setText(ToQt(ColourMapStatusText(bitmaps_.ProblemOf(CTerrainBitmaps::FileF))));
    lblBitmap_->setToolTip(ToQt(bitmaps_.Notice(CTerrainBitmaps::FileF)));
}

void FAnlage::ZoomIn() {
    navigator_->ZoomIn();
}

void FAnlage::ZoomOut() {
    navigator_->ZoomOut();
}

void FAnlage::World() {
    navigator_->World();
}

void FAnlage::ReturnFocusToPlan() {
    if (!isVisible())
        return;
    window()->activateWindow();
    Plan()->setFocus(Qt::OtherFocusReason);
}

void FAnlage::ZoomToSelection() {
    const CBox box = selection_.BoundingBox();
    if (box.IsEmpty())
        return;
    // The box holds centre lines and anchors: a few metres more keep wide roads and buildings
    // whole and show what they join.
    constexpr double kAround = 1000;
    navigator_->ZoomToBox(
        CRect(box.West - kAround, box.North + kAround, box.East + kAround, box.South - kAround));
}

void FAnlage::ZoomToContent() {
    navigator_->ZoomToContent();
}

void FAnlage::SetWithNames(bool on) {
    picPlan_->Painter().WithNames = on;
    commands_->ShowNames(on);
    picPlan_->Invalidate();
}

void FAnlage::SetWithSignals(bool on) {
    picPlan_->Painter().WithSignals = on;
    commands_->ShowSignals(on);
    picPlan_->Invalidate();
}

void FAnlage::EditHeightFilter() {
    CHoehenFilter& filter = anlage_->HoehenFilter();
    // The click toggled the button; it shows the filter, not the click.
    commands_->ShowHeightFilterActive(filter.Active());
    FHeightFilter dialog(this);
    dialog.Init({filter.Top(), filter.Bottom()}, {filter.TopActive(), filter.BottomActive()});
    dialog.exec();
    if (!dialog.isCancelled()) {
        FHeightFilter::Values values{};
        FHeightFilter::Flags active{};
        dialog.getFilter(values, active);
        filter.SetTop(values[0]);
        filter.SetTopActive(active[0]);
        filter.SetBottom(values[1]);
        filter.SetBottomActive(active[1]);
        ShowHeightFilterStatus();
        picPlan_->Invalidate();
    }
    commands_->ShowHeightFilterActive(filter.Active());
}

void FAnlage::ExportPlanDialog() {
    if (!view_.Scaled())
        return;
    const double viewAspect = view_.Width() / -view_.Height();
    FPlanExport dialog(picPlan_->width(), viewAspect, view_.Aspect(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const std::string folder = FileName().empty() ? std::string() : FolderOf(FileName());
    std::string path = SaveFileDialog(this, folder, dialog.Svg() ? ".svg" : ".png");
    if (!path.empty())
        ExportPlan(dialog.WholeLayout(), dialog.PixelWidth(), path);
}

bool FAnlage::ExportPlan(bool wholeLayout, int width, const std::string& path) {
    std::string error;
    UI().SetWaitCursor(true);
    const bool ok = kavrin::ExportPlan(*anlage_, view_, main_.Options(), picPlan_->Painter(), wholeLayout,
                                       width, path, error);
    UI().SetWaitCursor(false);
    // The drawing flags of the nodes now tell about the export; the window draws anew.
    picPlan_->Invalidate();
    if (!ok)
        ErrorBox(error);
    return ok;
}

FSearch* FAnlage::ShowSearch() {
    if (!search_) {
        search_ = new FSearch(*anlage_, this);
        search_->setWindowTitle(ToQt(
            FormatMessage("Suchen - %1", FromQt(QFileInfo(QString::fromStdString(FileName())).fileName()))));
        connect(search_, &FSearch::HitChosen, this, &FAnlage::JumpTo);
    }
    search_->show();
    search_->raise();
    search_->activateWindow();
    return search_;
}

void FAnlage::ShowInventory() {
    FInventory dialog(*anlage_, FromQt(QFileInfo(QString::fromStdString(FileName())).fileName()), this);
    dialog.exec();
}

// The hit is shown, hidden or not: a hidden one at least shows where it would be. One the plan
// may select (Consider(2)) becomes the selection.
void FAnlage::JumpTo(const CObjectSearch::Hit& hit) {
    ShowPlace(hit.x, hit.y);
    editor_->SelectFound(hit.node);
}

void FAnlage::ShowPlace(double x, double y) {
    navigator_->ShowPlace(x, y);
}

void FAnlage::ShowHeightFilterStatus() {
    lblStatus_->setText(ToQt(HeightFilterStatusText(anlage_->HoehenFilter())));
}

} // namespace kavrin
