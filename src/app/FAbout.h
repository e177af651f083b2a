#pragma once

#include <QDialog>

namespace kavrin {

// The About window: program name, version and what the program is for.
class FAbout : public QDialog {
    Q_OBJECT
public:
    explicit FAbout(QWidget* parent);
};

} // namespace kavrin
