#include "app/FContactsDel.h"

#include <QLabel>

#include "app/modQtText.h"
#include "core/modTools.h"

namespace kavrin {

FContactsDel::FContactsDel(QWidget* parent)
    : FListDelete("FContactsDel", FormatMessage("Kontakte löschen"),
                  FormatMessage("&Kontakte auf den ausgewählten Gleisen:"), "einen Kontakt", "%1 Kontakte",
                  "FContactsDel", parent) {
    Hinweis()->setText(ToQt(FormatMessage("Es werden nur Kontakte auf den ausgewählten Gleisen gelöscht.")));
    Hinweis()->show();
}

} // namespace kavrin
