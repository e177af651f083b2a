#include "app/FListDelete.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

FListDelete::FListDelete(const char* objectName, const std::string& title, const std::string& listTitle,
                         const char* one, const char* many, const char* source, QWidget* parent)
    : QDialog(parent), one_(one), many_(many), source_(source) {
    setObjectName(QLatin1String(objectName));
    setWindowTitle(ToQt(title));
    txtAnlage_ = new QLineEdit(this);
    txtAnlage_->setObjectName(QStringLiteral("txtAnlage"));
    txtAnlage_->setReadOnly(true);
    lblLbTitle_ = new QLabel(ToQt(listTitle), this);
    lblLbTitle_->setObjectName(QStringLiteral("lblLbTitle"));
    lbDel_ = new QListWidget(this);
    lbDel_->setObjectName(QStringLiteral("lbDel"));
    lbDel_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lbDel_->setMinimumSize(360, 240);
    lblLbTitle_->setBuddy(lbDel_);
    lblHinweis_ = new QLabel(this);
    lblHinweis_->setObjectName(QStringLiteral("lblHinweis"));
    lblHinweis_->setWordWrap(true);
    lblHinweis_->hide();

    auto button = [this](const char* name, const char* text) {
        auto* cmd = new QPushButton(ToQt(FormatMessage(text)), this);
        cmd->setObjectName(QLatin1String(name));
        cmd->setAutoDefault(false);
        return cmd;
    };
    cmdSelAll_ = button("cmdSelAll", "&Alle");
    cmdSelNone_ = button("cmdSelNone", "&Keine");
    cmdDelete_ = button("cmdDelete", "&Löschen");
    cmdDone_ = button("cmdDone", "&Fertig");
    connect(cmdSelAll_, &QPushButton::clicked, lbDel_, &QListWidget::selectAll);
    connect(cmdSelNone_, &QPushButton::clicked, lbDel_, &QListWidget::clearSelection);
    connect(cmdDelete_, &QPushButton::clicked, this, &FListDelete::cmdDelete_Click);
    connect(cmdDone_, &QPushButton::clicked, this, &QDialog::accept);
    connect(lbDel_, &QListWidget::itemSelectionChanged, this, &FListDelete::UpdateButtons);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdSelAll_);
    buttons->addWidget(cmdSelNone_);
    buttons->addStretch(1);
    buttons->addWidget(cmdDelete_);
    buttons->addWidget(cmdDone_);
    layout_ = new QVBoxLayout(this);
    layout_->addWidget(txtAnlage_);
    layout_->addWidget(lblLbTitle_);
    layout_->addWidget(lbDel_, 1);
    layout_->addWidget(lblHinweis_);
    layout_->addLayout(buttons);
}

void FListDelete::Init(const std::string& anlage, Lister lister, Deleter deleter) {
    txtAnlage_->setText(ToQt(anlage));
    lister_ = std::move(lister);
    deleter_ = std::move(deleter);
    FillList();
}

void FListDelete::FillList() {
    lines_ = lister_ ? lister_() : std::vector<Line>();
    lbDel_->clear();
    for (const Line& line : lines_) {
        std::string text = FormatMessage("%1 -- (%2)", line.text, WholeNumberText(line.count));
        if (line.unknown)
            text += "   " + FormatMessage("nicht im%nBestand");
        auto* item = new QListWidgetItem(ToQt(text), lbDel_);
        if (line.unknown)
            item->setForeground(Qt::darkRed);
    }
    UpdateButtons();
}

std::vector<std::string> FListDelete::Chosen() const {
    std::vector<std::string> keys;
    for (int row = 0; row < lbDel_->count(); ++row)
        if (lbDel_->item(row)->isSelected() && static_cast<size_t>(row) < lines_.size())
            keys.push_back(lines_[static_cast<size_t>(row)].key);
    return keys;
}

void FListDelete::UpdateButtons() {
    cmdDelete_->setEnabled(!lbDel_->selectedItems().isEmpty());
    cmdSelAll_->setEnabled(lbDel_->count() > 0);
    cmdSelNone_->setEnabled(lbDel_->count() > 0);
}

void FListDelete::cmdDelete_Click() {
    try {
        std::vector<std::string> keys = Chosen();
        int64_t count = 0;
        for (int row = 0; row < lbDel_->count(); ++row)
            if (lbDel_->item(row)->isSelected() && static_cast<size_t>(row) < lines_.size())
                count += lines_[static_cast<size_t>(row)].count;
        if (keys.empty())
            return;
        std::string what = count == 1 ? FormatMessage(one_) : FormatMessage(many_, WholeNumberText(count));
        if (!Ask(FormatMessage("Sie sind im Begriff, %1 zu löschen!%mWollen Sie das wirklich??", what)))
            return;
        if (deleter_ && deleter_(keys))
            FillList();
    } catch (...) {
        ReportCurrentError(std::string(source_) + ".cmdDelete_Click");
    }
}

} // namespace kavrin
