#include "app/FSelRotate.h"

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
#include "app/modEditIcons.h"
#include "app/modQtText.h"
#include "core/modTools.h"
#include "edit/CSelectionEdit.h"

namespace kavrin {

namespace {
constexpr int kArrowSize = 24;
// The total's precision: millionths of a degree.
constexpr double kTotalScale = 1e6;

QLineEdit* NumberBox(QWidget* parent, const QString& name, CInputChecker& checker) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setAlignment(Qt::AlignRight);
    box->setMaximumWidth(110);
    checker.Watch(box);
    return box;
}
} // namespace

FSelRotate::FSelRotate(QWidget* parent) : QDialog(parent), checker_(new CInputChecker(this)) {
    setObjectName(QStringLiteral("FSelRotate"));
    setWindowTitle(ToQt(FormatMessage("Auswahl drehen")));
    setModal(false);

    txtDegrees_ = NumberBox(this, QStringLiteral("txtDegrees"), *checker_);
    txtDegrees_->setText(QStringLiteral("0"));
    rbLeft_ = new QRadioButton(ToQt(FormatMessage("&links herum")), this);
    rbLeft_->setObjectName(QStringLiteral("rbLeft"));
    rbLeft_->setIcon(EditToolIcon(QStringLiteral("RotLeft")));
    rbLeft_->setChecked(true);
    rbRight_ = new QRadioButton(ToQt(FormatMessage("&rechts herum")), this);
    rbRight_->setObjectName(QStringLiteral("rbRight"));
    rbRight_->setIcon(EditToolIcon(QStringLiteral("RotRight")));
    auto* turn = new QButtonGroup(this);
    turn->addButton(rbLeft_);
    turn->addButton(rbRight_);
    for (int i = 0; i < 2; ++i) {
        txtCenter_[i] = NumberBox(this, QStringLiteral("txtCenter%1").arg(i), *checker_);
        txtCenter_[i]->setText(QStringLiteral("0"));
        connect(txtCenter_[i], &QLineEdit::textEdited, this, &FSelRotate::CenterEdited);
    }
    lblSumme_ = new QLabel(this);
    lblSumme_->setObjectName(QStringLiteral("lblSumme"));
    picRot_ = new QLabel(this);
    picRot_->setObjectName(QStringLiteral("picRot"));
    picRot_->setFixedSize(kArrowSize, kArrowSize);

    auto* grid = new QGridLayout;
    auto* degreesLabel = new QLabel(ToQt(FormatMessage("&Winkel (Grad):")), this);
    degreesLabel->setBuddy(txtDegrees_);
    grid->addWidget(degreesLabel, 0, 0);
    grid->addWidget(txtDegrees_, 0, 1);
    grid->addWidget(rbLeft_, 0, 2);
    grid->addWidget(rbRight_, 0, 3);
    grid->addWidget(new QLabel(ToQt(FormatMessage("Drehpunkt Ost (m):")), this), 1, 0);
    grid->addWidget(txtCenter_[0], 1, 1);
    grid->addWidget(new QLabel(ToQt(FormatMessage("Drehpunkt Nord (m):")), this), 2, 0);
    grid->addWidget(txtCenter_[1], 2, 1);
    grid->addWidget(new QLabel(ToQt(FormatMessage("Summe:")), this), 3, 0);
    auto* total = new QHBoxLayout;
    total->addWidget(lblSumme_);
    total->addWidget(picRot_);
    total->addStretch(1);
    grid->addLayout(total, 3, 1, 1, 3);

    cmdRotate_ = new QPushButton(ToQt(FormatMessage("&Drehen")), this);
    cmdRotate_->setObjectName(QStringLiteral("cmdRotate"));
    cmdRotate_->setDefault(true);
    connect(cmdRotate_, &QPushButton::clicked, this, &FSelRotate::cmdRotate_Click);
    cmdDone_ = new QPushButton(ToQt(FormatMessage("&Fertig")), this);
    cmdDone_->setObjectName(QStringLiteral("cmdDone"));
    connect(cmdDone_, &QPushButton::clicked, this, &QDialog::close);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdRotate_);
    buttons->addWidget(cmdDone_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(8);
    layout->addLayout(buttons);
}

FSelRotate::~FSelRotate() = default;

void FSelRotate::SetCenter(double cx, double cy) {
    txtCenter_[0]->setText(ToQt(DecimalText(cx / 100, 2, false)));
    txtCenter_[1]->setText(ToQt(DecimalText(cy / 100, 2, false)));
}

void FSelRotate::SetSelectionPresent(bool present) {
    cmdRotate_->setEnabled(present);
}

// The marker follows a centre box as soon as both hold a number; a box being emptied to type
// anew does not move it.
void FSelRotate::CenterEdited() {
    std::array<double, 2> centre{};
    for (int i = 0; i < 2; ++i) {
        const std::string text = FromQt(txtCenter_[i]->text().trimmed());
        if (text.empty() || !CInputChecker::IsSignedNumber(text))
            return;
        centre[i] = std::round(TextToDouble(text) * 100);
    }
    if (CSelectionEdit::CheckRotate(0, centre[0], centre[1]).empty())
        emit RotCenter(centre[0], centre[1]);
}

// The centre boxes first, then the angle; the first box that fails is named and gets the focus.
// (Centre coordinates take a sign: half of every layout lies west or south of its origin.)
bool FSelRotate::InputIsValid() {
    QLineEdit* failed = nullptr;
    const char* subject = "";
    for (QLineEdit* box : {txtCenter_[0], txtCenter_[1], txtDegrees_}) {
        const QString text = box->text().trimmed();
        box->setText(text);
        if (!failed && !CInputChecker::IsSignedNumber(FromQt(text))) {
            failed = box;
            subject = box == txtDegrees_ ? "Der Winkel" : "Die Koordinate";
        }
    }
    if (!failed)
        return true;
    ErrorBox(FormatMessage("%1 ist keine gültige Zahl!", subject) +
             FormatMessage("%mBitte korrigieren Sie Ihre Eingabe."));
    failed->setFocus();
    failed->selectAll();
    return false;
}

void FSelRotate::cmdRotate_Click() {
    if (!InputIsValid())
        return;
    double angle = 0, cx = 0, cy = 0;
    try {
        angle = TextToDouble(FromQt(txtDegrees_->text()));
        cx = std::round(TextToDouble(FromQt(txtCenter_[0]->text())) * 100);
        cy = std::round(TextToDouble(FromQt(txtCenter_[1]->text())) * 100);
    } catch (...) {
        ReportCurrentError("FSelRotate.cmdRotate_Click");
        return;
    }
    if (rbRight_->isChecked())
        angle = -angle;
    if (std::string refused = CSelectionEdit::CheckRotate(angle, cx, cy); !refused.empty()) {
        ErrorBox(refused + FormatMessage("%mBitte korrigieren Sie Ihre Eingabe."));
        QLineEdit* culprit = CSelectionEdit::CheckRotate(angle, 0, 0).empty()
                                 ? txtCenter_[CSelectionEdit::CheckRotate(0, cx, 0).empty() ? 1 : 0]
                                 : txtDegrees_;
        culprit->setFocus();
        culprit->selectAll();
        return;
    }
    if (!rotateHandler_ || !rotateHandler_(angle, cx, cy))
        return;
    total_ = Remainder(total_ + angle, 360);
    ShowTotal();
    txtDegrees_->selectAll(); // the next angle replaces this one
}

// The angle is ready to be typed over whenever the window comes up.
void FSelRotate::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    txtDegrees_->setFocus();
    txtDegrees_->selectAll();
}

void FSelRotate::ResetTotal() {
    total_ = 0;
    ShowTotal();
}

// Steps like 3 x 33,3 and -99,9 leave a residue of the binary arithmetic in the sum; what the
// dialog shows and tests is the sum at the precision of the numbers typed.
double FSelRotate::Total() const {
    const double shown = std::round(total_ * kTotalScale) / kTotalScale;
    return std::fabs(shown) == 360 ? 0.0 : shown + 0.0; // + 0.0: no "-0"
}

void FSelRotate::ShowTotal() {
    const double total = Total();
    if (total == 0) {
        lblSumme_->clear();
        picRot_->clear();
        return;
    }
    lblSumme_->setText(ToQt(FormatMessage("%1 Grad", std::fabs(total))));
    picRot_->setPixmap(RotationArrow(total < 0, kArrowSize));
}

// Every way out (Fertig, the title bar's cross, Esc) ends here.
void FSelRotate::done(int result) {
    emit Unloaded();
    QDialog::done(result);
}

} // namespace kavrin
