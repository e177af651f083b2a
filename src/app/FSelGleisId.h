#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <vector>

#include "plan/CGleisIdList.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace kavrin {

class CAnlage;

// Selects tracks by their ids (mnuSelGleisId): the track system (cbSystem; track ids are unique
// only within one), a list of ids and ranges (txtIds, "12, 40..55, -3") and whether the tracks
// join the selection or replace it (chkAdd). OK closes only with a list that can be read.
class FSelGleisId : public QDialog {
    Q_OBJECT
public:
    FSelGleisId(const CAnlage& anlage, QWidget* parent = nullptr);

    int16_t SystemId() const;
    const CGleisIdList& Ids() const { return ids_; }
    bool AddToSelection() const;

    void accept() override;

private:
    QComboBox* cbSystem_ = nullptr;
    QLineEdit* txtIds_ = nullptr;
    QCheckBox* chkAdd_ = nullptr;
    CGleisIdList ids_;
};

} // namespace kavrin
