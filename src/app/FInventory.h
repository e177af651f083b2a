#pragma once

#include <QDialog>

#include "plan/CLayoutInventory.h"

class QTreeWidget;

namespace kavrin {

// Anlage > "Inventar…": the object list of the layout (CLayoutInventory) with its counts, to
// copy as text or save as CSV.
class FInventory : public QDialog {
    Q_OBJECT
public:
    FInventory(const CAnlage& anlage, const std::string& layoutName, QWidget* parent = nullptr);

    const CLayoutInventory& Inventory() const { return inventory_; }
    // The list as text, with the user's digit grouping.
    std::string Text() const;
    // "Als Text kopieren".
    void CopyText() const;
    // "Als CSV speichern…" into a file; false (after telling the user) when it failed.
    bool SaveCsv(const std::string& path) const;

private:
    void Fill();
    void AskAndSaveCsv();

    CLayoutInventory inventory_;
    std::string layoutName_;
    QTreeWidget* tree_ = nullptr;
};

} // namespace kavrin
