#pragma once

#include <QDialog>
#include <array>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kavrin {

class CInputChecker;

// Turns the selection by an exact angle (txtDegrees, degrees; rbLeft counter-clockwise, rbRight
// clockwise) about an exact centre (txtCenter 0 and 1, metres), and shows the running total
// modulo 360 (lblSumme, " Grad") with the arrow of its direction (picRot). Not modal. A centre
// box changed to a valid number raises RotCenter (the plan's marker follows); the window fills
// the boxes when the centre is set on the plan. Closing it (also with Esc) raises Unloaded.
class FSelRotate : public QDialog {
    Q_OBJECT
public:
    // A step: degrees counter-clockwise and the centre in world units (cm); true when the
    // window turned the selection.
    using RotateHandler = std::function<bool(double angle, double cx, double cy)>;

    explicit FSelRotate(QWidget* parent = nullptr);
    ~FSelRotate() override;

    void SetRotateHandler(RotateHandler handler) { rotateHandler_ = std::move(handler); }
    // Fills the centre boxes (world units), without raising RotCenter.
    void SetCenter(double cx, double cy);
    // Whether a step is possible (something is selected).
    void SetSelectionPresent(bool present);
    // A new count: the total starts again at 0 (a new selection).
    void ResetTotal();
    // The running total in degrees (-360 < total < 360) as the dialog shows it.
    double Total() const;

    // cmdRotate: the input test, the step, the total.
    void cmdRotate_Click();

signals:
    void RotCenter(double cx, double cy);
    void Unloaded();

protected:
    void done(int result) override;
    void showEvent(QShowEvent* event) override;

private:
    bool InputIsValid();
    void CenterEdited();
    void ShowTotal();

    QLineEdit* txtDegrees_ = nullptr;
    QRadioButton* rbLeft_ = nullptr;
    QRadioButton* rbRight_ = nullptr;
    std::array<QLineEdit*, 2> txtCenter_{};
    QLabel* lblSumme_ = nullptr;
    QLabel* picRot_ = nullptr;
    QPushButton* cmdRotate_ = nullptr;
    QPushButton* cmdDone_ = nullptr;
    CInputChecker* checker_ = nullptr;
    double total_ = 0;
    RotateHandler rotateHandler_;
};

} // namespace kavrin
