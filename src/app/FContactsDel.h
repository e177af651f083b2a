#pragma once

#include "app/FListDelete.h"

namespace kavrin {

// Deletes the contacts of chosen kinds on the selected tracks (mnuAnlContactsDel): each kind
// ("Signal / Weiche", "Kamera" ...) with the number of contacts of it there.
class FContactsDel : public FListDelete {
    Q_OBJECT
public:
    explicit FContactsDel(QWidget* parent = nullptr);
};

} // namespace kavrin
