#include "app/FAnlage.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStyle>
#include <QVBoxLayout>

#include "app/CAppIcon.h"
#include "app/COptions.h"
#include "app/CQtUserInterface.h"
#include "app/FMain.h"
#include "app/modDialogs.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "document/CAnlage.h"

namespace kavrin {

FAnlage::FAnlage(FMain& main, CQtUserInterface& ui, QWidget* parent)
    : QWidget(parent), main_(main), ui_(ui), anlage_(std::make_unique<CAnlage>()) {
    setObjectName(QStringLiteral("FAnlage"));
    setWindowIcon(CAppIcon::Icon());
    setMinimumSize(320, 200);

    // The plan is drawn here; until a layout is drawn it is a plain surface in the plan's colour.
    picPlan_ = new QWidget(this);
    picPlan_->setObjectName(QStringLiteral("picPlan"));
    picPlan_->setAutoFillBackground(true);

    auto* strip = new QWidget(this);
    strip->setObjectName(QStringLiteral("fraStatus"));
    lblVersion_ = new QLabel(strip);
    lblVersion_->setObjectName(QStringLiteral("lblVersion"));
    lblStatus_ = new QLabel(strip);
    lblStatus_->setObjectName(QStringLiteral("lblStatus"));
    lblStatus_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* stripLayout = new QHBoxLayout(strip);
    stripLayout->setContentsMargins(6, 2, 6, 2);
    stripLayout->addWidget(lblVersion_);
    stripLayout->addStretch(1);
    stripLayout->addWidget(lblStatus_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(picPlan_, 1);
    layout->addWidget(strip);

    CreateMenus();
    RepaintPlan();
}

FAnlage::~FAnlage() {
    main_.RemoveAnlage(this);
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
    connect(close, &QAction::triggered, this, [this] {
        if (QMdiSubWindow* sub = SubWindow())
            sub->close();
    });

    mnuFile_->addSeparator()->setObjectName(QStringLiteral("mnuFileMruSep"));
    mnuFile_->addSeparator();
    mnuFile_->addAction(main_.findChild<QAction*>(QStringLiteral("mnuFileQuit")));
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
    ui_.EndLoad();
    ui_.SetStatusLabel(nullptr);
    loading_ = false;
    lblStatus_->clear();
    if (!ok)
        return false;
    lblVersion_->setText(ToQt(FormatMessage("Version %1", anlage_->Version().Text())));
    UpdateCaption();
    RepaintPlan();
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
    std::string path = SaveFileDialog(this, FileName().empty() ? std::string() : FromQt(folder), ".anl3");
    if (path.empty())
        return false;
    return SaveAs(path);
}

bool FAnlage::SaveAs(const std::string& file) {
    std::string path = NormalPath(file);
    if (path.empty() || main_.AnlageInUse(path, this))
        return false;
    bool ok = anlage_->Save(path);
    UpdateCaption();
    if (ok)
        main_.AddRecentFile(path);
    return ok;
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
}

void FAnlage::RepaintPlan() {
    QPalette palette = picPlan_->palette();
    palette.setColor(QPalette::Window, ColorFromBgr(main_.Options().BgColor()));
    picPlan_->setPalette(palette);
    picPlan_->update();
}

void FAnlage::closeEvent(QCloseEvent* event) {
    if (loading_ || !QueryUnload()) {
        event->ignore();
        return;
    }
    // Releasing a large tree takes a moment; the window says what it is doing.
    lblStatus_->setText(ToQt(FormatMessage("wird abgebaut ...")));
    lblStatus_->repaint();
    anlage_->Clear();
    main_.RemoveAnlage(this);
    event->accept();
}

} // namespace kavrin
