#pragma once

#include "app/FListDelete.h"

class QGroupBox;

namespace kavrin {

class CSignalStock;

// Deletes signals chosen by model (mnuAnlSignalsDel): every signal of the layout with its
// number of uses, the models the installation lacks marked "nicht im Bestand" (lblUnknown
// tells how many), the note of what goes along (fraHinweisDel, lblHinweisDel) and, when the
// resource archive is there, the warning that packed signals count as missing (lblResPak).
class FSignalsDel : public FListDelete {
    Q_OBJECT
public:
    explicit FSignalsDel(QWidget* parent = nullptr);

    // `resourcenPak`: the installation holds "RESOURCEN.PAK".
    void SignalsUsed(const CSignalStock& stock, bool resourcenPak);

protected:
    void FillList() override;

private:
    QGroupBox* fraHinweisDel_ = nullptr;
    QLabel* lblHinweisDel_ = nullptr;
    QLabel* lblUnknown_ = nullptr;
    QLabel* lblResPak_ = nullptr;
};

} // namespace kavrin
