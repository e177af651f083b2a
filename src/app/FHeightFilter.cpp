#include "app/FHeightFilter.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

#include "app/CInputChecker.h"
#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
constexpr int kUpper = 0;
constexpr int kLower = 1;
} // namespace

FHeightFilter::FHeightFilter(QWidget* parent) : QDialog(parent), checker_(new CInputChecker(this)) {
    setObjectName(QStringLiteral("FHeightFilter"));
    setWindowTitle(ToQt(FormatMessage("Höhenfilter")));

    // One grid for both rows, so that the height boxes stand one below the other.
    auto* rows = new QGridLayout;
    rows->setColumnStretch(3, 1);
    for (int row = 0; row < kRows; ++row)
        CreateRow(row, *rows);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(rows);

    cmdOk_ = new QPushButton(ToQt(FormatMessage("OK")), this);
    cmdOk_->setObjectName(QStringLiteral("cmdOk"));
    cmdOk_->setDefault(true);
    connect(cmdOk_, &QPushButton::clicked, this, &FHeightFilter::accept);
    cmdCancel_ = new QPushButton(ToQt(FormatMessage("Abbrechen")), this);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdCancel_, &QPushButton::clicked, this, &FHeightFilter::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOk_);
    buttons->addWidget(cmdCancel_);
    layout->addSpacing(8);
    layout->addLayout(buttons);
}

void FHeightFilter::CreateRow(int row, QGridLayout& grid) {
    const QString suffix = QString::number(row);
    chkActive_[row] =
        new QCheckBox(ToQt(FormatMessage(row == kUpper ? "&Obere Grenze:" : "&Untere Grenze:")), this);
    chkActive_[row]->setObjectName(QStringLiteral("chkActive") + suffix);
    txHeight_[row] = new QLineEdit(this);
    txHeight_[row]->setObjectName(QStringLiteral("txHeight") + suffix);
    txHeight_[row]->setAlignment(Qt::AlignRight);
    txHeight_[row]->setMaximumWidth(120);
    checker_->Watch(txHeight_[row]);
    connect(txHeight_[row], &QLineEdit::textEdited, this, [this, row] { TickOnTyping(row); });
    lblHinweis_[row] = new QLabel(ToQt(FormatMessage("Elemente, die %1 der angegebenen Höhe liegen, "
                                                     "werden nicht angezeigt.",
                                                     row == kUpper ? "oberhalb" : "unterhalb")),
                                  this);
    lblHinweis_[row]->setObjectName(QStringLiteral("lblHinweis") + suffix);
    lblHinweis_[row]->setWordWrap(true);

    const int top = 3 * row; // check box and height, explanation, a gap
    grid.addWidget(chkActive_[row], top, 0);
    grid.addWidget(txHeight_[row], top, 1);
    grid.addWidget(new QLabel(QStringLiteral("m"), this), top, 2);
    grid.addWidget(lblHinweis_[row], top + 1, 0, 1, 4);
    grid.setRowMinimumHeight(top + 2, 8);
}

void FHeightFilter::Init(const Values& values, const Flags& active) {
    for (int row = 0; row < kRows; ++row) {
        txHeight_[row]->setText(ToQt(FormatMessage("%1", static_cast<double>(values[row]) / 100)));
        chkActive_[row]->setChecked(active[row]);
    }
}

void FHeightFilter::TickOnTyping(int row) {
    chkActive_[row]->setChecked(!txHeight_[row]->text().trimmed().isEmpty());
}

void FHeightFilter::getFilter(Values& values, Flags& active) const {
    for (int row = 0; row < kRows; ++row) {
        active[row] = chkActive_[row]->isChecked();
        try {
            values[row] = WorldHeight(row);
        } catch (const CError&) {
            values[row] = 0; // cannot happen after a passed check
        }
    }
}

void FHeightFilter::accept() {
    if (!InputIsValid())
        return;
    cancelled_ = false;
    QDialog::accept();
}

void FHeightFilter::reject() {
    cancelled_ = true;
    QDialog::reject();
}

bool FHeightFilter::InputIsValid() {
    if (!RowsAreNumbers())
        return false;
    try {
        return LimitsAreInOrder();
    } catch (const CError&) {
        ErrorBox(FormatMessage("Bitte die Höhenangabe überprüfen und korrigieren!"));
        return false;
    }
}

bool FHeightFilter::RowsAreNumbers() {
    for (int row = 0; row < kRows; ++row) {
        const QString text = txHeight_[row]->text().trimmed();
        txHeight_[row]->setText(text);
        if (!CInputChecker::IsSignedNumber(FromQt(text))) {
            ErrorBox(
                FormatMessage("Ungültige Zahl >%1< !%mBitte korrigieren Sie Ihre Eingabe.", FromQt(text)));
            txHeight_[row]->setFocus();
            return false;
        }
    }
    return true;
}

// Both rows are converted, also an unticked one: its value is handed back as well.
bool FHeightFilter::LimitsAreInOrder() {
    const float upper = WorldHeight(kUpper);
    const float lower = WorldHeight(kLower);
    if (chkActive_[kUpper]->isChecked() && chkActive_[kLower]->isChecked() && lower > upper) {
        ErrorBox(FormatMessage("Die untere Sichtgrenze kann nicht größer als die obere sein...%m"
                               "Bitte korrigieren Sie Ihre Eingabe."));
        txHeight_[kLower]->setFocus();
        return false;
    }
    return true;
}

// The limits are kept as single-precision world units; a height beyond that is an overflow.
float FHeightFilter::WorldHeight(int row) const {
    const double world = TextToDouble(FromQt(txHeight_[row]->text())) * 100;
    if (!std::isfinite(world) || std::fabs(world) > std::numeric_limits<float>::max())
        throw CError::Overflow();
    return static_cast<float>(world);
}

} // namespace kavrin
