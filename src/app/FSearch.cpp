#include "app/FSearch.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
constexpr size_t kMaxHits = 500;

std::string ListText(const CObjectSearch::Hit& hit) {
    return hit.hidden ? FormatMessage("%1 (ausgeblendet)", hit.text) : hit.text;
}
} // namespace

FSearch::FSearch(CAnlage& anlage, QWidget* parent) : QDialog(parent), search_(anlage) {
    setObjectName(QStringLiteral("FSearch"));
    setWindowTitle(ToQt(FormatMessage("Suchen")));
    auto* hint =
        new QLabel(ToQt(FormatMessage("Gleis-ID, Key-ID von Weichen und Signalen, Modellname von Signalen "
                                      "und Immobilien oder Lua-Funktion von Kontakten (ein Teil genügt):")),
                   this);
    hint->setWordWrap(true);
    txtSearch_ = new QLineEdit(this);
    txtSearch_->setObjectName(QStringLiteral("txtSearch"));
    txtSearch_->setClearButtonEnabled(true);
    auto* find = new QPushButton(ToQt(FormatMessage("&Suchen")), this);
    find->setObjectName(QStringLiteral("cmdSearch"));
    find->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addWidget(txtSearch_, 1);
    row->addWidget(find);
    lstHits_ = new QListWidget(this);
    lstHits_->setObjectName(QStringLiteral("lstHits"));
    lblResult_ = new QLabel(this);
    lblResult_->setObjectName(QStringLiteral("lblResult"));
    lblResult_->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(ToQt(FormatMessage("Schließen")));
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addLayout(row);
    layout->addWidget(lstHits_, 1);
    layout->addWidget(lblResult_);
    layout->addWidget(buttons);
    resize(520, 420);

    connect(find, &QPushButton::clicked, this, &FSearch::Search);
    connect(txtSearch_, &QLineEdit::returnPressed, this, &FSearch::Search);
    connect(lstHits_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { Choose(lstHits_->row(item)); });
    connect(lstHits_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { Choose(lstHits_->row(item)); });
}

void FSearch::Search() {
    hits_ = search_.Find(FromQt(txtSearch_->text()), kMaxHits);
    lstHits_->clear();
    for (const CObjectSearch::Hit& hit : hits_) {
        auto* item = new QListWidgetItem(ToQt(ListText(hit)), lstHits_);
        if (hit.hidden)
            item->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
    }
    if (hits_.empty())
        lblResult_->setText(ToQt(FormatMessage("Nichts gefunden.")));
    else if (hits_.size() >= kMaxHits)
        lblResult_->setText(ToQt(FormatMessage("Die ersten %1 Treffer; bitte genauer suchen.",
                                               FromQt(QLocale().toString(static_cast<int>(kMaxHits))))));
    else
        lblResult_->setText(
            ToQt(FormatMessage("%1 Treffer", FromQt(QLocale().toString(static_cast<int>(hits_.size()))))));
    // With hits the keys go on in the list: arrows choose, Enter jumps.
    if (!hits_.empty()) {
        lstHits_->setCurrentRow(0);
        lstHits_->setFocus();
    }
}

void FSearch::Choose(int row) {
    if (row < 0 || row >= static_cast<int>(hits_.size()))
        return;
    const CObjectSearch::Hit& hit = hits_[static_cast<size_t>(row)];
    lblResult_->setText(hit.hidden ? ToQt(FormatMessage("%1 ist ausgeblendet: Die Ansicht zeigt die Stelle, "
                                                        "das Objekt selbst ist nicht zu sehen.",
                                                        hit.text))
                                   : ToQt(hit.text));
    emit HitChosen(hit);
}

} // namespace kavrin
