#pragma once

#include <QDialog>
#include <cstdint>
#include <string>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace kavrin {

class CSelection;

// Asks before the selection is deleted (mnuSelDelete, the Entf key): the layout (txtAnlage),
// what is selected (fraSelected with lblCountGleise, lblCountImmos, lblCountGoods), the trains
// that go with the tracks (lblZugverband, lbRollies), how many objects stay because the
// simulator has them locked (lblLocked), the question (lblQuery), cmdOk and cmdCancel.
class FSelDelete : public QDialog {
    Q_OBJECT
public:
    explicit FSelDelete(QWidget* parent = nullptr);

    void Init(const std::string& anlage, const CSelection& selection, int32_t locked);
    // A train the deletion takes with it; trains of another vehicle pool start a new group.
    void RegisterRolli(int32_t pool, const std::string& name, int32_t vehicles);
    // Whether the dialog was left without confirming.
    bool Cancelled() const { return cancelled_; }

    void accept() override;

private:
    QLineEdit* txtAnlage_ = nullptr;
    QGroupBox* fraSelected_ = nullptr;
    QLabel* lblCountGleise_ = nullptr;
    QLabel* lblCountImmos_ = nullptr;
    QLabel* lblCountGoods_ = nullptr;
    QLabel* lblZugverband_ = nullptr;
    QListWidget* lbRollies_ = nullptr;
    QLabel* lblLocked_ = nullptr;
    QLabel* lblQuery_ = nullptr;
    QPushButton* cmdOk_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    bool cancelled_ = true;
    bool anyRolli_ = false;
    int32_t lastPool_ = 0;
};

} // namespace kavrin
