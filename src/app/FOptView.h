#pragma once

#include <QDialog>
#include <cstdint>
#include <vector>

class QCheckBox;
class QGridLayout;
class QToolButton;

namespace kavrin {

class COptions;

// The view-options dialog: colour and visibility of every kind of object on the plan, the
// plan's background, track-end marks and track ids. Saving writes into the options.
class FOptView : public QDialog {
    Q_OBJECT
public:
    FOptView(COptions& options, QWidget* parent);

    void accept() override;

private:
    // One line of the dialog: a kind of object, whether it is drawn, and its colour.
    struct Row {
        QCheckBox* visible = nullptr;
        QToolButton* color = nullptr;
        uint32_t bgr = 0;
    };
    Row& AddRow(QGridLayout* grid, const std::string& caption, const char* name, bool visible, uint32_t bgr,
                bool withCheckBox = true);
    void PickColor(Row& row);
    static void PaintSwatch(Row& row);

    COptions& options_;
    std::vector<Row> rows_; // tracks 1..4, buildings 4 and 5, goods, background
    QCheckBox* chkTrackMarks_;
    QCheckBox* chkGleisId_;
};

} // namespace kavrin
