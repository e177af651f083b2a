#include "app/FSelMove.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cmath>

#include "app/CInputChecker.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "edit/CSelectionEdit.h"
#include "nodes/CBox.h"

namespace kavrin {

namespace {
// The letters of the totals: east, west, north, south, up, down.
constexpr const char* kDirections = "OWNS^v";
const char* const kAxisNames[] = {"Ost/West:", "Nord/Süd:", "Höhe:"};
const char* const kButtonNames[][2] = {
    {"&Osten", "&Westen"}, {"&Norden", "&Süden"}, {"nach &oben", "nach &unten"}};

// Metres as the dialogs show them.
std::string Metres(double world) {
    return DecimalText(world / 100, 2) + " m";
}
} // namespace

FSelMove::FSelMove(QWidget* parent) : QDialog(parent), checker_(new CInputChecker(this)) {
    setObjectName(QStringLiteral("FSelMove"));
    setWindowTitle(ToQt(FormatMessage("Auswahl verschieben")));
    setModal(false);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(ToQt(FormatMessage("Entfernung (m)")), this), 0, 1);
    grid->addWidget(new QLabel(ToQt(FormatMessage("Richtung")), this), 0, 2, 1, 2);
    grid->addWidget(new QLabel(ToQt(FormatMessage("Summe")), this), 0, 4);
    for (int row = 0; row < kRows; ++row)
        CreateRow(row, *grid);
    grid->setColumnMinimumWidth(4, 110);

    lblAreaHead_ = new QLabel(ToQt(FormatMessage("Ausdehnung der Auswahl (Ost, Nord, Höhe):")), this);
    lblAreaHead_->setObjectName(QStringLiteral("lblAreaHead"));
    lblAreaVon_ = new QLabel(this);
    lblAreaVon_->setObjectName(QStringLiteral("lblAreaVon"));
    lblAreaBis_ = new QLabel(this);
    lblAreaBis_->setObjectName(QStringLiteral("lblAreaBis"));

    cmdMove_ = new QPushButton(ToQt(FormatMessage("&Verschieben")), this);
    cmdMove_->setObjectName(QStringLiteral("cmdMove"));
    cmdMove_->setDefault(true);
    connect(cmdMove_, &QPushButton::clicked, this, &FSelMove::cmdMove_Click);
    cmdClear_ = new QPushButton(ToQt(FormatMessage("&Zurücksetzen")), this);
    cmdClear_->setObjectName(QStringLiteral("cmdClear"));
    cmdClear_->setToolTip(ToQt(FormatMessage("Entfernungen auf 0 setzen und die Summen neu beginnen")));
    connect(cmdClear_, &QPushButton::clicked, this, &FSelMove::cmdClear_Click);
    cmdDone_ = new QPushButton(ToQt(FormatMessage("&Fertig")), this);
    cmdDone_->setObjectName(QStringLiteral("cmdDone"));
    connect(cmdDone_, &QPushButton::clicked, this, &QDialog::close);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdMove_);
    buttons->addWidget(cmdClear_);
    buttons->addWidget(cmdDone_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addWidget(lblAreaHead_);
    layout->addWidget(lblAreaVon_);
    layout->addWidget(lblAreaBis_);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    ResetTotals();
    cmdClear_Click();
}

FSelMove::~FSelMove() = default;

void FSelMove::CreateRow(int row, QGridLayout& grid) {
    const QString suffix = QString::number(row);
    txtMeter_[row] = new QLineEdit(this);
    txtMeter_[row]->setObjectName(QStringLiteral("txtMeter") + suffix);
    txtMeter_[row]->setAlignment(Qt::AlignRight);
    txtMeter_[row]->setMaximumWidth(110);
    checker_->Watch(txtMeter_[row]);
    auto* group = new QButtonGroup(this);
    for (int button = 0; button < 2; ++button) {
        rbDir_[row][button] = new QRadioButton(ToQt(FormatMessage(kButtonNames[row][button])), this);
        rbDir_[row][button]->setObjectName(QStringLiteral("rbDir%1_%2").arg(row).arg(button));
        group->addButton(rbDir_[row][button]);
        grid.addWidget(rbDir_[row][button], row + 1, 2 + button);
    }
    rbDir_[row][0]->setChecked(true);
    lblSumme_[row] = new QLabel(this);
    lblSumme_[row]->setObjectName(QStringLiteral("lblSumme") + suffix);
    grid.addWidget(new QLabel(ToQt(FormatMessage(kAxisNames[row])), this), row + 1, 0);
    grid.addWidget(txtMeter_[row], row + 1, 1);
    grid.addWidget(lblSumme_[row], row + 1, 4);
}

// Each box is trimmed and tested in turn; the first that is no number is named and gets the focus.
bool FSelMove::InputIsValid() {
    for (QLineEdit* box : txtMeter_) {
        const QString text = box->text().trimmed();
        box->setText(text);
        if (!CInputChecker::IsNumber(FromQt(text))) {
            ErrorBox(FormatMessage("Ungültige Zahl >%1< !", FromQt(text)) +
                     FormatMessage("%mBitte korrigieren Sie Ihre Eingabe."));
            box->setFocus();
            box->selectAll();
            return false;
        }
    }
    return true;
}

// Metres with two decimals become whole world units (cm).
void FSelMove::cmdMove_Click() {
    if (!InputIsValid())
        return;
    std::array<double, kRows> offsets{};
    try {
        for (int row = 0; row < kRows; ++row) {
            double metres = TextToDouble(FromQt(txtMeter_[row]->text()));
            double world = std::round(metres * 100);
            offsets[row] = rbDir_[row][1]->isChecked() ? -world : world;
        }
    } catch (...) {
        ReportCurrentError("FSelMove.cmdMove_Click");
        return;
    }
    if (std::string refused = CSelectionEdit::CheckMove(offsets[0], offsets[1], offsets[2]);
        !refused.empty()) {
        ErrorBox(refused + FormatMessage("%mBitte korrigieren Sie Ihre Eingabe."));
        return;
    }
    if (!moveHandler_ || !moveHandler_(offsets[0], offsets[1], offsets[2]))
        return;
    for (int row = 0; row < kRows; ++row)
        totals_[row] += offsets[row];
    ShowTotals();
    if (auto* box = qobject_cast<QLineEdit*>(focusWidget()))
        box->selectAll(); // the next distance replaces this one
}

// The first distance is ready to be typed over whenever the window comes up.
void FSelMove::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    txtMeter_[0]->setFocus();
    txtMeter_[0]->selectAll();
}

void FSelMove::cmdClear_Click() {
    for (QLineEdit* box : txtMeter_)
        box->setText(QStringLiteral("0"));
    ResetTotals();
}

void FSelMove::ResetTotals() {
    totals_ = {};
    ShowTotals();
}

void FSelMove::ShowTotals() {
    for (int row = 0; row < kRows; ++row) {
        // Whole centimetres, the precision of a step.
        double total = std::round(totals_[row]) + 0.0;
        if (total == 0) {
            lblSumme_[row]->clear();
            continue;
        }
        char letter = kDirections[2 * row + (total < 0 ? 1 : 0)];
        lblSumme_[row]->setText(ToQt(Metres(std::fabs(total)) + " " + letter));
    }
}

void FSelMove::ShowExtent(const CBox& box) {
    cmdMove_->setEnabled(!box.IsEmpty());
    if (box.IsEmpty()) {
        lblAreaVon_->setText(ToQt(FormatMessage("Nichts ausgewählt")));
        lblAreaBis_->clear();
        return;
    }
    lblAreaVon_->setText(
        ToQt(FormatMessage("%1; %2; %3", Metres(box.West), Metres(box.South), Metres(box.Bottom))));
    lblAreaBis_->setText(ToQt(FormatMessage(
        "bis %1", FormatMessage("%1; %2; %3", Metres(box.East), Metres(box.North), Metres(box.Top)))));
}

} // namespace kavrin
