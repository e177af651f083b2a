#pragma once

#include <QDialog>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace kavrin {

class CKeyIdRenumbering;

// Asks before the key ids are renumbered (mnuAnlRenumKeyId): the warning about Lua scripts
// (lblWarning), the table old -> new (txtTable, read-only) and a button that copies it to the
// clipboard (cmdCopy); cmdOk renumbers, cmdCancel leaves everything as it is.
class FRenumKeyIds : public QDialog {
    Q_OBJECT
public:
    FRenumKeyIds(const CKeyIdRenumbering& renumbering, QWidget* parent = nullptr);

private:
    void CopyTable();

    QLabel* lblWarning_ = nullptr;
    QPlainTextEdit* txtTable_ = nullptr;
    QPushButton* cmdCopy_ = nullptr;
};

} // namespace kavrin
