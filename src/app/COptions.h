#pragma once

#include "plan/CViewOptions.h"

class QWidget;

namespace kavrin {

// The view options of the plan as the user keeps them: read from the settings store (section
// "Anlagen") when created, where a key the user never stored keeps the default palette; written
// back when the user saves the dialog.
class COptions : public CViewOptions {
public:
    COptions();

    // Shows the view-options dialog; true when the user saved it.
    bool AskUser(QWidget* parent);
    // Writes every key of the section back.
    void Save() const;

private:
    void Load();
};

} // namespace kavrin
