#include "app/FPlanExport.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cmath>

#include "app/CInputChecker.h"
#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

FPlanExport::FPlanExport(int viewWidth, double viewAspect, double layoutAspect, QWidget* parent)
    : QDialog(parent), viewAspect_(viewAspect > 0 ? viewAspect : 1),
      layoutAspect_(layoutAspect > 0 ? layoutAspect : 1), checker_(new CInputChecker(this)) {
    setObjectName(QStringLiteral("FPlanExport"));
    setWindowTitle(ToQt(FormatMessage("Plan exportieren")));

    auto* range = new QGroupBox(ToQt(FormatMessage("Bereich")), this);
    optView_ = new QRadioButton(ToQt(FormatMessage("&Aktuelle Ansicht")), range);
    optView_->setObjectName(QStringLiteral("optView"));
    optView_->setChecked(true);
    optWhole_ = new QRadioButton(ToQt(FormatMessage("&Ganze Anlage")), range);
    optWhole_->setObjectName(QStringLiteral("optWhole"));
    auto* rangeLayout = new QVBoxLayout(range);
    rangeLayout->addWidget(optView_);
    rangeLayout->addWidget(optWhole_);

    txtWidth_ = new QLineEdit(QString::number(std::max(kMinWidth, viewWidth)), this);
    txtWidth_->setObjectName(QStringLiteral("txtWidth"));
    txtWidth_->setAlignment(Qt::AlignRight);
    txtWidth_->setMaximumWidth(100);
    checker_->Watch(txtWidth_);
    lblHeight_ = new QLabel(this);
    lblHeight_->setObjectName(QStringLiteral("lblHeight"));
    auto* widthRow = new QHBoxLayout;
    widthRow->addWidget(txtWidth_);
    widthRow->addWidget(new QLabel(ToQt(FormatMessage("Pixel")), this));
    widthRow->addSpacing(12);
    widthRow->addWidget(lblHeight_, 1);
    cbFormat_ = new QComboBox(this);
    cbFormat_->setObjectName(QStringLiteral("cbFormat"));
    cbFormat_->addItem(ToQt(FormatMessage("PNG-Bild (*.png)")));
    cbFormat_->addItem(ToQt(FormatMessage("SVG-Vektorgrafik (*.svg)")));
    auto* form = new QFormLayout;
    auto* widthLabel = new QLabel(ToQt(FormatMessage("&Breite:")), this);
    widthLabel->setBuddy(txtWidth_);
    form->addRow(widthLabel, widthRow);
    auto* formatLabel = new QLabel(ToQt(FormatMessage("&Format:")), this);
    formatLabel->setBuddy(cbFormat_);
    form->addRow(formatLabel, cbFormat_);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(ToQt(FormatMessage("&Exportieren …")));
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOk"));
    buttons->button(QDialogButtonBox::Cancel)->setText(ToQt(FormatMessage("Abbrechen")));
    connect(buttons, &QDialogButtonBox::accepted, this, &FPlanExport::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(range);
    layout->addLayout(form);
    layout->addWidget(buttons);

    connect(txtWidth_, &QLineEdit::textChanged, this, &FPlanExport::ShowHeight);
    connect(optWhole_, &QRadioButton::toggled, this, &FPlanExport::ShowHeight);
    ShowHeight();
}

bool FPlanExport::WholeLayout() const {
    return optWhole_->isChecked();
}

bool FPlanExport::Svg() const {
    return cbFormat_->currentIndex() == 1;
}

int FPlanExport::PixelHeight() const {
    const double aspect = WholeLayout() ? layoutAspect_ : viewAspect_;
    return std::max(1, static_cast<int>(std::lround(width_ / aspect)));
}

int FPlanExport::TypedWidth() const {
    try {
        const double value = TextToDouble(FromQt(txtWidth_->text()));
        return value == std::floor(value) && value >= 1 && value <= 1e6 ? static_cast<int>(value) : 0;
    } catch (const CError&) {
        return 0;
    }
}

void FPlanExport::ShowHeight() {
    const int typed = TypedWidth();
    const double aspect = WholeLayout() ? layoutAspect_ : viewAspect_;
    lblHeight_->setText(
        typed > 0
            ? ToQt(FormatMessage("Höhe: %1 Pixel", FromQt(QLocale().toString(std::lround(typed / aspect)))))
            : QString());
}

void FPlanExport::accept() {
    const int typed = TypedWidth();
    width_ = typed;
    if (typed < kMinWidth || typed > kMaxPixels || PixelHeight() > kMaxPixels) {
        ErrorBox(FormatMessage("Bitte als Breite eine ganze Zahl von %1 bis %2 angeben;%n"
                               "auch die Höhe darf %2 Pixel nicht überschreiten.",
                               kMinWidth, FromQt(QLocale().toString(kMaxPixels))));
        txtWidth_->setFocus();
        txtWidth_->selectAll();
        return;
    }
    QDialog::accept();
}

} // namespace kavrin
