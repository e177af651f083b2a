#pragma once

#include <QDialog>
#include <array>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kavrin {

class CInputChecker;

// The height filter dialog: row 0 the upper, row 1 the lower limit, each a height box in metres
// (txHeight), a check box that puts the limit in force (chkActive) and an explanation
// (lblHinweis). Heights handed in and out are world units (cm). Created for each use.
class FHeightFilter : public QDialog {
    Q_OBJECT
public:
    static constexpr int kRows = 2;
    using Values = std::array<float, kRows>;
    using Flags = std::array<bool, kRows>;

    explicit FHeightFilter(QWidget* parent = nullptr);

    void Init(const Values& values, const Flags& active);
    bool isCancelled() const { return cancelled_; }
    // The heights of the boxes times 100 and the ticks; only meaningful when not cancelled.
    void getFilter(Values& values, Flags& active) const;

    // cmdOk: closes only when the input check passes.
    void accept() override;
    void reject() override;

private:
    void CreateRow(int row, QGridLayout& grid);
    void TickOnTyping(int row);
    // The input check; tells the user what is wrong and puts the focus there.
    bool InputIsValid();
    bool RowsAreNumbers();
    bool LimitsAreInOrder();
    // A box's height in world units; throws CError when it cannot be converted.
    float WorldHeight(int row) const;

    std::array<QLineEdit*, kRows> txHeight_{};
    std::array<QCheckBox*, kRows> chkActive_{};
    std::array<QLabel*, kRows> lblHinweis_{};
    QPushButton* cmdOk_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    CInputChecker* checker_ = nullptr;
    bool cancelled_ = true;
};

} // namespace kavrin
