#include "app/FOptView.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/COptions.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "nodes/CObjectTexte.h"

namespace kavrin {

namespace {
constexpr int kGoodsRow = COptions::kTrackStyles + 2;
constexpr int kBackgroundRow = kGoodsRow + 1;
} // namespace

FOptView::FOptView(COptions& options, QWidget* parent) : QDialog(parent), options_(options) {
    setObjectName(QStringLiteral("FOptView"));
    setWindowTitle(ToQt(FormatMessage("Ansicht des Plans")));
    rows_.reserve(kBackgroundRow + 1);

    auto* objects = new QGroupBox(ToQt(FormatMessage("Objekte auf dem Plan")), this);
    auto* grid = new QGridLayout(objects);
    grid->addWidget(new QLabel(ToQt(FormatMessage("<b>Anzeigen</b>")), objects), 0, 0);
    grid->addWidget(new QLabel(ToQt(FormatMessage("<b>Farbe</b>")), objects), 0, 1);
    for (int i = 1; i <= COptions::kTrackStyles; ++i)
        AddRow(grid, FormatMessage("Gleise: %1", CObjectTexte::GleisSystem(i)),
               FormatMessage("Track%1", i).c_str(), options.TrackVisible(i), options.TrackColor(i));
    for (int kind = COptions::kFirstImmoKind; kind <= COptions::kLastImmoKind; ++kind)
        AddRow(grid, CObjectTexte::Immos(20 + kind), FormatMessage("Immo%1", kind).c_str(),
               options.ImmoVisible(kind), options.ImmoColor(kind));
    AddRow(grid, FormatMessage("Güter"), "Goods", options.GoodsVisible(), options.GoodsColor());

    auto* plan = new QGroupBox(ToQt(FormatMessage("Plan")), this);
    auto* planGrid = new QGridLayout(plan);
    AddRow(planGrid, FormatMessage("Hintergrund"), "BG", true, options.BgColor(), false);
    chkTrackMarks_ = new QCheckBox(ToQt(FormatMessage("Gleisenden &markieren")), plan);
    chkTrackMarks_->setObjectName(QStringLiteral("chkTrackMarks"));
    chkTrackMarks_->setChecked(options.TrackMarks());
    chkGleisId_ = new QCheckBox(ToQt(FormatMessage("Gleis-&IDs anzeigen")), plan);
    chkGleisId_->setObjectName(QStringLiteral("chkGleisId"));
    chkGleisId_->setChecked(options.GleisId());
    planGrid->addWidget(chkTrackMarks_, planGrid->rowCount(), 0, 1, 2);
    planGrid->addWidget(chkGleisId_, planGrid->rowCount(), 0, 1, 2);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Save)->setText(ToQt(FormatMessage("&Speichern")));
    buttons->button(QDialogButtonBox::Cancel)->setText(ToQt(FormatMessage("Abbrechen")));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(objects);
    layout->addWidget(plan);
    layout->addWidget(buttons);
}

FOptView::Row& FOptView::AddRow(QGridLayout* grid, const std::string& caption, const char* name, bool visible,
                                uint32_t bgr, bool withCheckBox) {
    Row& row = rows_.emplace_back();
    int line = grid->rowCount();
    if (withCheckBox) {
        row.visible = new QCheckBox(ToQt(caption), grid->parentWidget());
        row.visible->setObjectName(QStringLiteral("chk%1Visible").arg(QLatin1String(name)));
        row.visible->setChecked(visible);
        grid->addWidget(row.visible, line, 0);
    } else {
        grid->addWidget(new QLabel(ToQt(caption), grid->parentWidget()), line, 0);
    }
    row.color = new QToolButton(grid->parentWidget());
    row.color->setObjectName(QStringLiteral("cmd%1Color").arg(QLatin1String(name)));
    row.color->setToolTip(ToQt(FormatMessage("Farbe wählen ...")));
    row.color->setIconSize(QSize(36, 14));
    row.bgr = bgr;
    PaintSwatch(row);
    grid->addWidget(row.color, line, 1);
    size_t index = rows_.size() - 1;
    connect(row.color, &QToolButton::clicked, this, [this, index] { PickColor(rows_[index]); });
    return row;
}

void FOptView::PaintSwatch(Row& row) {
    QPixmap swatch(36, 14);
    swatch.fill(ColorFromBgr(row.bgr));
    QPainter painter(&swatch);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
    row.color->setIcon(QIcon(swatch));
}

void FOptView::PickColor(Row& row) {
    QColor chosen = QColorDialog::getColor(ColorFromBgr(row.bgr), this, ToQt(FormatMessage("Farbe wählen")));
    if (!chosen.isValid())
        return;
    row.bgr = BgrFromColor(chosen);
    PaintSwatch(row);
}

void FOptView::accept() {
    for (int i = 1; i <= COptions::kTrackStyles; ++i) {
        options_.SetTrackVisible(i, rows_[i - 1].visible->isChecked());
        options_.SetTrackColor(i, rows_[i - 1].bgr);
    }
    for (int kind = COptions::kFirstImmoKind; kind <= COptions::kLastImmoKind; ++kind) {
        const Row& row = rows_[COptions::kTrackStyles + kind - COptions::kFirstImmoKind];
        options_.SetImmoVisible(kind, row.visible->isChecked());
        options_.SetImmoColor(kind, row.bgr);
    }
    options_.SetGoodsVisible(rows_[kGoodsRow].visible->isChecked());
    options_.SetGoodsColor(rows_[kGoodsRow].bgr);
    options_.SetBgColor(rows_[kBackgroundRow].bgr);
    options_.SetTrackMarks(chkTrackMarks_->isChecked());
    options_.SetGleisId(chkGleisId_->isChecked());
    QDialog::accept();
}

// Defined beside the dialog, so that the options themselves need no widgets (the command-line
// export reads them too).
bool COptions::AskUser(QWidget* parent) {
    FOptView dialog(*this, parent);
    if (dialog.exec() != FOptView::Accepted)
        return false;
    Save();
    return true;
}

} // namespace kavrin
