#pragma once

#include <QDialog>
#include <vector>

#include "plan/CObjectSearch.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace kavrin {

// Bearbeiten > "Suchen…": finds tracks by id, switches and signals by key id, signals and
// buildings by model name and contacts by Lua function (CObjectSearch). Choosing a hit hands
// it to the window, which shows it on the plan. Stays open beside the plan.
class FSearch : public QDialog {
    Q_OBJECT
public:
    explicit FSearch(CAnlage& anlage, QWidget* parent = nullptr);

    // Searches for the text in the box and lists the hits.
    void Search();
    const std::vector<CObjectSearch::Hit>& Hits() const { return hits_; }
    // Chooses the hit at a row of the list, as a click does.
    void Choose(int row);

signals:
    void HitChosen(const CObjectSearch::Hit& hit);

private:
    CObjectSearch search_;
    std::vector<CObjectSearch::Hit> hits_;
    QLineEdit* txtSearch_ = nullptr;
    QListWidget* lstHits_ = nullptr;
    QLabel* lblResult_ = nullptr;
};

} // namespace kavrin
