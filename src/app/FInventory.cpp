#include "app/FInventory.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QSaveFile>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/modDialogs.h"
#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

namespace {
QString Count(long value) {
    return QLocale().toString(static_cast<qlonglong>(value));
}

char Grouping() {
    const QString separator = QLocale().groupSeparator();
    return separator.size() == 1 && separator.at(0).unicode() < 0x80 ? separator.at(0).toLatin1() : '.';
}
} // namespace

FInventory::FInventory(const CAnlage& anlage, const std::string& layoutName, QWidget* parent)
    : QDialog(parent), inventory_(anlage), layoutName_(layoutName) {
    setObjectName(QStringLiteral("FInventory"));
    setWindowTitle(ToQt(FormatMessage("Inventar - %1", layoutName)));
    tree_ = new QTreeWidget(this);
    tree_->setObjectName(QStringLiteral("tvInventory"));
    tree_->setColumnCount(3);
    tree_->setHeaderLabels(
        {ToQt(FormatMessage("Objekt")), ToQt(FormatMessage("Steht auf")), ToQt(FormatMessage("Anzahl"))});
    tree_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tree_->header()->setStretchLastSection(false);
    Fill();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setText(ToQt(FormatMessage("Schließen")));
    QPushButton* copy =
        buttons->addButton(ToQt(FormatMessage("Als &Text kopieren")), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("cmdCopy"));
    QPushButton* csv =
        buttons->addButton(ToQt(FormatMessage("Als &CSV speichern …")), QDialogButtonBox::ActionRole);
    csv->setObjectName(QStringLiteral("cmdCsv"));
    connect(copy, &QPushButton::clicked, this, &FInventory::CopyText);
    connect(csv, &QPushButton::clicked, this, &FInventory::AskAndSaveCsv);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tree_, 1);
    layout->addWidget(buttons);
    resize(640, 560);
}

void FInventory::Fill() {
    for (const CLayoutInventory::Section& section : inventory_.Sections()) {
        auto* top = new QTreeWidgetItem(tree_, {ToQt(section.title), QString(), Count(section.Total())});
        QFont bold = top->font(0);
        bold.setBold(true);
        for (int column = 0; column < 3; ++column)
            top->setFont(column, bold);
        top->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        for (const CLayoutInventory::Row& row : section.rows) {
            auto* item = new QTreeWidgetItem(top, {ToQt(row.name), ToQt(row.detail), Count(row.count)});
            item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        }
        top->setExpanded(section.rows.size() <= 50);
    }
    tree_->resizeColumnToContents(1);
    tree_->resizeColumnToContents(2);
}

std::string FInventory::Text() const {
    return FormatMessage("Inventar der Anlage %1%m", layoutName_) + inventory_.Text(Grouping());
}

void FInventory::CopyText() const {
    QApplication::clipboard()->setText(ToQt(Text()));
}

bool FInventory::SaveCsv(const std::string& path) const {
    // With the byte-order mark spreadsheets read the umlauts as UTF-8.
    const std::string csv = "\xEF\xBB\xBF" + inventory_.Csv();
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(csv.data(), static_cast<qint64>(csv.size())) != static_cast<qint64>(csv.size()) ||
        !file.commit()) {
        ErrorBox(FormatMessage("Die Datei%n%1%nkonnte nicht gespeichert werden:%n%2", path,
                               FromQt(file.errorString())));
        return false;
    }
    return true;
}

void FInventory::AskAndSaveCsv() {
    std::string path = SaveFileDialog(this, std::string(), ".csv");
    if (!path.empty())
        SaveCsv(path);
}

} // namespace kavrin
