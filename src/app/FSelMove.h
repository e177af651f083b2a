#pragma once

#include <QDialog>
#include <array>
#include <functional>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kavrin {

class CBox;
class CInputChecker;

// Moves the selection by exact distances: one row per axis (east-west, north-south, up-down)
// with a distance in metres (txtMeter), the direction (rbDir: the first button of a row the
// positive direction) and the running total of the steps applied (lblSumme, "12,50 m O"). The
// extent of the selection stands below (lblAreaHead, lblAreaVon, lblAreaBis). Not modal: it stays
// open for several steps; each step goes to the document window's handler (its Move event).
class FSelMove : public QDialog {
    Q_OBJECT
public:
    static constexpr int kRows = 3;
    // A step in world units (cm); true when the window moved the selection.
    using MoveHandler = std::function<bool(double dx, double dy, double dz)>;

    explicit FSelMove(QWidget* parent = nullptr);
    ~FSelMove() override;

    void SetMoveHandler(MoveHandler handler) { moveHandler_ = std::move(handler); }
    // The selection's box in world units; an empty box: nothing selected, no step possible.
    void ShowExtent(const CBox& box);
    // A new count: the totals start again at 0 (a new selection, cmdClear).
    void ResetTotals();
    // The running totals in world units.
    const std::array<double, kRows>& Totals() const { return totals_; }

    // cmdMove: the input test, the step, the totals.
    void cmdMove_Click();
    // cmdClear: the distance boxes to "0" and a new count.
    void cmdClear_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void CreateRow(int row, QGridLayout& grid);
    bool InputIsValid();
    void ShowTotals();

    std::array<QLineEdit*, kRows> txtMeter_{};
    std::array<std::array<QRadioButton*, 2>, kRows> rbDir_{};
    std::array<QLabel*, kRows> lblSumme_{};
    QLabel* lblAreaHead_ = nullptr;
    QLabel* lblAreaVon_ = nullptr;
    QLabel* lblAreaBis_ = nullptr;
    QPushButton* cmdMove_ = nullptr;
    QPushButton* cmdClear_ = nullptr;
    QPushButton* cmdDone_ = nullptr;
    CInputChecker* checker_ = nullptr;
    std::array<double, kRows> totals_{};
    MoveHandler moveHandler_;
};

} // namespace kavrin
