#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

namespace kavrin {

// The settings dialog: the folder in which the open dialog starts ("PathAnlagen"), what Kavrin
// found of the simulator's installation, and whether start-up asks when its resources are
// missing (the question's "Nicht mehr fragen" switches that off).
class FOptSettings : public QDialog {
    Q_OBJECT
public:
    explicit FOptSettings(QWidget* parent);

    void accept() override;

private:
    void Browse();

    QLineEdit* txtPathAnlagen_;
    QCheckBox* chkAskResources_ = nullptr;
};

} // namespace kavrin
