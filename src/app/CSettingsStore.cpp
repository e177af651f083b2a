#include "app/CSettingsStore.h"

#include <QSettings>
#include <cmath>
#include <limits>

#include "core/modTools.h"

namespace kavrin {

namespace {

// An ini file per user on every platform: the same format everywhere, and tests can point
// the user scope at a folder of their own (QSettings::setPath).
QSettings Store() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, kProgramName, kProgramName);
}

// A store that cannot be written (a read-only profile, a full disk) is reported once per run;
// Kavrin goes on with the values it holds in memory.
void CheckWritten(QSettings& store, const char* procedure) {
    static bool reported = false;
    store.sync();
    if (store.status() != QSettings::AccessError || reported)
        return;
    reported = true;
    ReportError(procedure, CError::FileAccess(store.fileName().toStdString()),
                FormatMessage("Kavrin kann seine Einstellungen nicht speichern."));
}

QString StoreKey(const std::string& section, const std::string& key) {
    return QString::fromStdString(section + "/" + key);
}

} // namespace

std::string CSettingsStore::Get(const std::string& section, const std::string& key) {
    QVariant value = Store().value(StoreKey(section, key));
    if (!value.isValid())
        return kNoEntry;
    // A hand-edited value with a comma comes back as a list; it is still one text.
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(QLatin1Char(',')).toStdString();
    return value.toString().toStdString();
}

int32_t CSettingsStore::GetNumber(const std::string& section, const std::string& key, int32_t defaultValue) {
    std::string text = Get(section, key);
    int32_t value = 0;
    if (text == kNoEntry || !ParseNumber(text, value))
        return defaultValue;
    return value;
}

void CSettingsStore::Save(const std::string& section, const std::string& key, const std::string& value) {
    QSettings store = Store();
    store.setValue(StoreKey(section, key), QString::fromStdString(value));
    CheckWritten(store, "CSettingsStore.Save");
}

void CSettingsStore::Delete(const std::string& section, const std::string& key) {
    QSettings store = Store();
    store.remove(StoreKey(section, key));
    CheckWritten(store, "CSettingsStore.Delete");
}

bool CSettingsStore::ParseNumber(const std::string& text, int32_t& value) {
    bool ok = false;
    double number = QString::fromStdString(std::string(Trim(text))).toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return false;
    double rounded = std::nearbyint(number); // ties to even, as the conversion of the stored text
    if (rounded < std::numeric_limits<int32_t>::min() || rounded > std::numeric_limits<int32_t>::max())
        return false;
    value = static_cast<int32_t>(rounded);
    return true;
}

} // namespace kavrin
