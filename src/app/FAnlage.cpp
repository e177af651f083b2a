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
#include "app/COptions.h"
#include "app/CPlanCommands.h"
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
#include "nodes/CNodeLandschaft.h"
#include "nodes/LayoutLookup.h"
#include "plan/CContentBox.h"
#include "plan/CPlanPainter.h"
#include "plan/CTerrainFiles.h"

namespace kavrin {

namespace {
// Milliseconds between the last resize and the drawing.
constexpr int kPaintDelay = 120;
} // namespace

FAnlage::FAnlage(FMain& main, CQtUserInterface& ui, QWidget* parent)
    : QWidget(parent), main_(main), ui_(ui), anlage_(std::make_unique<CAnlage>()) {
    setObjectName(QStringLiteral("FAnlage"));
    setWindowIcon(CAppIcon::Icon());
    setMinimumSize(320, 200);

    commands_ = new CPlanCommands(this);
    cbZoom_ = commands_->ZoomBox();
    CreatePlan();

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
    // Several resizes in a row give one drawing.
    paintTimer_ = new QTimer(this);
    paintTimer_->setObjectName(QStringLiteral("PaintTimer"));
    paintTimer_->setInterval(kPaintDelay);
    paintTimer_->setSingleShot(true);
    UpdateScrollBars();
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

    connect(cbZoom_, &QComboBox::currentIndexChanged, this, &FAnlage::ZoomSelected);
    // After a choice in the zoom box the keys belong to the plan again.
    connect(cbZoom_, &QComboBox::activated, picPlan_, [this] { picPlan_->setFocus(); });
    connect(cbZoom_->lineEdit(), &QLineEdit::returnPressed, this, &FAnlage::ZoomTyped);
    connect(scrHor_, &QScrollBar::valueChanged, this, [this](int value) {
        fitContent_ = false;
        view_.SetScrollValueX(value);
        picPlan_->Invalidate();
    });
    connect(scrVert_, &QScrollBar::valueChanged, this, [this](int value) {
        fitContent_ = false;
        view_.SetScrollValueY(value);
        picPlan_->Invalidate();
    });
    connect(picPlan_, &CPlanWidget::Resized, paintTimer_, qOverload<>(&QTimer::start));
    connect(paintTimer_, &QTimer::timeout, this, &FAnlage::RescalePlan);
    connect(picPlan_, &CPlanWidget::MouseAt, this,
            [this](double x, double y) { lblCoord_->setText(CoordinateText(x, y)); });
    connect(picPlan_, &CPlanWidget::MouseLeft, lblCoord_, &QLabel::clear);
    connect(picPlan_, &CPlanWidget::Dragged, this,
            [this](QPoint distance) { ScrollPlan(-QPointF(distance)); });
    connect(picPlan_, &CPlanWidget::ScrollBy, this, &FAnlage::ScrollPlan);
    connect(picPlan_, &CPlanWidget::ZoomBy, this, &FAnlage::ZoomAtMouse);
    connect(picPlan_, &CPlanWidget::ZoomStep, this,
            [this](int direction) { direction > 0 ? ZoomIn() : ZoomOut(); });
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
    UpdateCaption();
    InitPlan();
    return true;
}

bool FAnlage::Save() {
    if (FileName().empty())
        return SaveAs();
    bool ok = anlage_->Save(FileName());
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
    paintTimer_->stop();
    anlage_->Clear();
    main_.RemoveAnlage(this);
    event->accept();
}

// The plan after a load: extent and zoom steps from the terrain, the commands and the status
// brought in line, and the first drawing, fitted to the layout's content.
void FAnlage::InitPlan() {
    CPlanPainter::InitView(view_, *anlage_);
    FillZoomBox();
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

void FAnlage::FillZoomBox() {
    {
        QSignalBlocker quiet(cbZoom_);
        cbZoom_->clear();
        for (float step : view_.ZoomSteps())
            cbZoom_->addItem(ToQt(CPlanView::ZoomText(step)));
    }
    ShowZoom();
}

void FAnlage::ShowZoom() {
    QSignalBlocker quiet(cbZoom_);
    cbZoom_->setCurrentIndex(view_.ZoomIndex());
    if (view_.ZoomIndex() < 0 && view_.Zoom() > 0)
        cbZoom_->setEditText(ToQt(ZoomFactorText(view_.Zoom())));
    UpdateZoomCommands();
}

void FAnlage::ZoomSelected(int index) {
    if (index < 0 || index == view_.ZoomIndex())
        return;
    fitContent_ = false;
    view_.SelectZoom(index);
    ShowZoom();
    RescalePlan();
}

// A factor typed into the zoom box applies about the middle of the picture; anything that is
// no factor gives way to the current one, and so does the text the box shows for it (which
// may be rounded).
void FAnlage::ZoomTyped() {
    const std::string typed = FromQt(cbZoom_->currentText());
    float factor = 0;
    if (view_.Scaled() && typed != ZoomFactorText(view_.Zoom()) && ReadZoomFactor(typed, factor)) {
        fitContent_ = false;
        view_.ZoomAt(factor, view_.ClientWidth() / 2.0, view_.ClientHeight() / 2.0);
    }
    ShowZoom();
    RescalePlan();
    picPlan_->setFocus();
}

void FAnlage::ZoomIn() {
    if (view_.CanZoomIn())
        cbZoom_->setCurrentIndex(view_.StepAbove());
}

void FAnlage::ZoomOut() {
    if (view_.CanZoomOut())
        cbZoom_->setCurrentIndex(view_.StepBelow());
}

void FAnlage::World() {
    if (cbZoom_->count() == 0)
        return;
    fitContent_ = false;
    view_.World();
    ShowZoom();
    RescalePlan();
}

void FAnlage::ZoomToContent() {
    if (view_.Zoom() <= 0)
        return;
    content_ = CContentBox::Of(*anlage_, view_.LayoutRect());
    fitContent_ = true;
    RescalePlan();
}

// The wheel and a pinch zoom about the point under the mouse: that point stays where it is, as
// far as the view can stay on the layout.
void FAnlage::ZoomAtMouse(double multiplier, QPointF position) {
    if (!view_.Scaled())
        return;
    fitContent_ = false;
    if (!view_.ZoomAt(static_cast<float>(view_.Zoom() * multiplier), position.x(), position.y()))
        return;
    ShowZoom();
    RescalePlan();
}

void FAnlage::ScrollPlan(QPointF pixels) {
    if (!view_.Scaled())
        return;
    fitContent_ = false;
    view_.ScrollBy(pixels.x(), pixels.y());
    UpdateScrollBars();
    picPlan_->Invalidate();
}

bool FAnlage::FitView() {
    if (content_)
        return view_.FitTo(*content_);
    view_.World();
    return view_.ScalePlan();
}

void FAnlage::RescalePlan() {
    paintTimer_->stop();
    view_.SetClientSize(picPlan_->width(), picPlan_->height());
    if (fitContent_ && FitView())
        ShowZoom();
    else
        view_.ScalePlan();
    UpdateScrollBars();
    picPlan_->Invalidate();
}

namespace {
int ScrollUnits(double world) {
    return static_cast<int>(std::clamp(std::round(world), 0.0, 1e9));
}

// Scroll bars count world units: the range is what the layout has beyond the view, a page is
// the visible size, a step a tenth of it.
void SetScrollBar(QScrollBar* bar, bool scaled, double range, double visible, double value) {
    QSignalBlocker quiet(bar);
    const int maximum = scaled ? ScrollUnits(range) : 0;
    bar->setRange(0, maximum);
    bar->setPageStep(std::max(1, ScrollUnits(visible)));
    bar->setSingleStep(std::max(1, ScrollUnits(visible / 10)));
    bar->setValue(scaled ? ScrollUnits(value) : 0);
    bar->setEnabled(maximum > 0);
}
} // namespace

void FAnlage::UpdateScrollBars() {
    SetScrollBar(scrHor_, view_.Scaled(), view_.ScrollRangeX(), view_.Width(), view_.ScrollValueX());
    SetScrollBar(scrVert_, view_.Scaled(), view_.ScrollRangeY(), -view_.Height(), view_.ScrollValueY());
}

void FAnlage::UpdateZoomCommands() {
    commands_->EnableZoom(view_.CanZoomIn(), view_.CanZoomOut(), view_.Zoom() > 0);
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

// The hit is shown, hidden or not: a hidden one at least shows where it would be.
// Once the plan has a selection, a hit that may be selected (Consider(2)) is selected here.
void FAnlage::JumpTo(const CObjectSearch::Hit& hit) {
    ShowPlace(hit.x, hit.y);
}

void FAnlage::ShowPlace(double x, double y) {
    if (!view_.Scaled() || !std::isfinite(x) || !std::isfinite(y))
        return;
    const std::vector<float>& steps = view_.ZoomSteps();
    const double wanted = std::max(view_.ExtX(), view_.ExtY()) / 8000.0;
    int index = static_cast<int>(steps.size()) - 1;
    for (int i = 0; i < static_cast<int>(steps.size()); ++i)
        if (steps[static_cast<size_t>(i)] >= wanted) {
            index = i;
            break;
        }
    fitContent_ = false;
    view_.SelectZoom(index);
    view_.SetCentre(x, y);
    view_.KeepOnLayout();
    ShowZoom();
    RescalePlan();
}

void FAnlage::ShowHeightFilterStatus() {
    lblStatus_->setText(ToQt(HeightFilterStatusText(anlage_->HoehenFilter())));
}

} // namespace kavrin
