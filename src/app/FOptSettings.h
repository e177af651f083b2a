#pragma once

#include <QDialog>

class QLineEdit;

namespace kavrin {

// The settings dialog: the folder in which the open dialog starts ("PathAnlagen"), and what
// Kavrin found of the simulator's installation.
class FOptSettings : public QDialog {
    Q_OBJECT
public:
    explicit FOptSettings(QWidget* parent);

    void accept() override;

private:
    void Browse();

    QLineEdit* txtPathAnlagen_;
};

} // namespace kavrin
