#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace kavrin {

class CInputChecker;

// Datei > "Plan exportieren…": what to export (the current view or the whole layout), the
// picture's width in pixels (the height follows the shape of the view or layout) and the
// format, PNG or SVG. Created for each use; the caller asks for the file name afterwards.
class FPlanExport : public QDialog {
    Q_OBJECT
public:
    static constexpr int kMinWidth = 16;
    static constexpr int kMaxPixels = 16384;

    // `viewAspect` and `layoutAspect` are width / height of the view and of the layout.
    FPlanExport(int viewWidth, double viewAspect, double layoutAspect, QWidget* parent = nullptr);

    bool WholeLayout() const;
    bool Svg() const;
    // Only meaningful after the dialog was accepted.
    int PixelWidth() const { return width_; }
    int PixelHeight() const;

    // cmdOk: closes only when the width is a whole number in range.
    void accept() override;

private:
    void ShowHeight();
    // The width typed, or 0 when it is no whole number.
    int TypedWidth() const;

    double viewAspect_;
    double layoutAspect_;
    int width_ = 0;
    QRadioButton* optView_ = nullptr;
    QRadioButton* optWhole_ = nullptr;
    QLineEdit* txtWidth_ = nullptr;
    QLabel* lblHeight_ = nullptr;
    QComboBox* cbFormat_ = nullptr;
    CInputChecker* checker_ = nullptr;
};

} // namespace kavrin
